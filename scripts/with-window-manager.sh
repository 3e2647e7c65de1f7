#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# with-window-manager.sh COMMAND...: runs a command in the display that it is started in, with a
# window manager and for programs under wine. Called by build-windows.sh.
set -euo pipefail

# Ends wine processes left from another display.
wineserver -k || true
openbox >"$WINEPREFIX/openbox.log" 2>&1 &
windowManager=$!
trap 'wineserver -k || true; kill $windowManager' EXIT
"$@"
