#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Tests the ports on single lines through Linux's own drivers: boots Debian's kernel in a virtual PC
# and runs tests-real-lines there, which makes a GPIO chip and an FTDI chip that these drivers find,
# with the simulated board behind them. Installs what is missing; fetches the kernel at the first
# run and keeps it in build/qemu-lines. Fails when a test does, or when the virtual machine does not
# get to the tests' end.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/build-functions.sh
source scripts/machine-functions.sh

machine=build/qemu-lines
modules=(hid/hid hid/uhid hid/hid-cp2112 usb/common/usb-common usb/core/usbcore
    usb/usbip/usbip-core usb/usbip/vhci-hcd usb/serial/usbserial usb/serial/ftdi_sio)
program=tests-real-lines

RunInMachine -smp 1
