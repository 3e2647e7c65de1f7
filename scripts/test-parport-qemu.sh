#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests the printer port through Linux's own drivers, and directly: boots Debian's kernel in a
# virtual PC with a printer port and runs tests-real-port there. Installs what is missing; fetches
# the kernel at the first run and keeps it in build/qemu. Fails when a test does, or when the virtual
# machine does not get to the tests' end.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh
source scripts/machine-functions.sh

machine=build/qemu
modules=(parport/parport parport/parport_pc char/ppdev char/lp)
program=tests-real-port

# Nothing is behind the port: its status lines stand still.
RunInMachine -chardev null,id=port -device isa-parallel,chardev=port,iobase=0x378,irq=7
