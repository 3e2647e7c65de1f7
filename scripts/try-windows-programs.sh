#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Goes through the main job with the packed programs for Windows, under wine and by keyboard, in the
# display that it is started in: on the simulated board, on the stand-in for the port library, and
# without either. Then installs them with the installer, starts what is installed and uninstalls it.
# Leaves pictures. Called by build-windows.sh.
set -euo pipefail
zip=$1 installer=$(realpath "$2") library=$3 pictures=$(realpath -m "$4")
source scripts/build-functions.sh

UseWine
place=$(realpath "$(dirname "$zip")")/tried
rm -rf "$place" "$pictures"
mkdir -p "$place" "$pictures"
unzip -q "$zip" -d "$place"
# Names that no 8-bit code page has all the letters of.
mv "$place"/* "$place/Prüfung 測定"
cd "$place/Prüfung 測定"

Fail() {
    import -window root "$pictures/failed.png"
    Say "$1; see $pictures/failed.png."
    exit 1
}

# Window TITLE: waits for the window and gives it the keyboard.
Window() {
    local id
    if ! id=$(timeout 60 xdotool search --sync --onlyvisible --name "$1" | tail -n 1) ||
        ! timeout 20 xdotool windowactivate --sync "$id"; then
        Fail "There is no window \"$1\""
    fi
    Settle
}

# Pixels by which two pictures of the screen differ.
Difference() {
    printf '%.0f' "$(compare -metric AE "$1" "$2" null: 2>&1)"
}

# Waits until the screen stays as it is for a while, but for a caret that blinks: a block has been
# read, a form is drawn.
Settle() {
    local caret=40 tries same=0
    import -window root "$place/before.png"
    for ((tries = 0; tries < 100 && same < 3; ++tries)); do
        sleep 0.1
        import -window root "$place/now.png"
        if [ "$(Difference "$place/before.png" "$place/now.png")" -le "$caret" ]; then
            same=$((same + 1))
        else
            same=0
        fi
        mv "$place/now.png" "$place/before.png"
    done
    [ "$same" -eq 3 ] || Fail 'The screen does not come to rest'
}

# Await WHAT COMMAND...: until the command succeeds.
Await() {
    local what=$1 tries
    shift
    for ((tries = 0; tries < 200; ++tries)); do
        ! "$@" || return 0
        sleep 0.1
    done
    Fail "$what"
}

HasCodes() {
    [ -f "$1" ] && [ "$(wc -l <"$1")" -eq 200 ]
}

Press() {
    xdotool key --clearmodifiers "$1"
    Settle
}

# Go KEY TITLE: by a key to another window.
Go() {
    Press "$1"
    Window "$2"
}

Picture() {
    import -window root "$pictures/$1.png"
}

# EnterPath NAME: into the data file form.
EnterPath() {
    xdotool key --clearmodifiers alt+n ctrl+a
    xdotool type --clearmodifiers "$1"
    Settle
}

Start() {
    Say "Trying vx3260-eval.exe $* ..."
    wine ./vx3260-eval.exe "$@" &
    program=$!
}

Quit() {
    Go alt+q '^VX3260 Evaluation Software$'
    xdotool key --clearmodifiers alt+y
    wait "$program" || Fail "vx3260-eval.exe ended with $?"
}

# ReadBlock PICTURE: from the main menu; stays in the form.
ReadBlock() {
    Go alt+m 'Read Data From Main'
    Press alt+r
    Picture "$1"
}

# SaveBlock NAME PICTURE: from the main menu and back to it.
SaveBlock() {
    Go alt+w 'Write to File'
    EnterPath "$1"
    Press alt+w
    Await "$1 has not 200 codes" HasCodes "$1"
    Picture "$2"
    Go alt+a 'Main Menu'
}

Start --simulated
Window 'Main Menu'
Picture 1-main-menu
Go space 'Program Menu'
Go alt+m 'Program Mode Register'
Picture 2-mode
Go alt+a 'Program Menu'
Go alt+a 'Main Menu'
ReadBlock 3-read-main
Go alt+n 'Noise Analysis'
Picture 4-noise
Go alt+h 'Histogram'
Picture 5-histogram
Go alt+a 'Noise Analysis'
Go alt+g 'Plot of Codes'
Picture 6-plot
Go alt+a 'Noise Analysis'
Go alt+a 'Read Data From Main'
Go alt+a 'Main Menu'
SaveBlock block.dat 7-write
Quit

Start --simulated
Window 'Main Menu'
Go alt+r 'Read from File'
EnterPath block.dat
Press alt+r
Picture 8-read
Go alt+a 'Main Menu'
Go alt+n 'Noise Analysis'
Picture 9-noise-of-file
Go alt+a 'Main Menu'
SaveBlock again.dat 10-write-again
Quit
cmp block.dat again.dat || Fail 'The block is not the same after it was saved and loaded'
wine ./vx3260-cli.exe noise main block.dat --range 7 --polarity bipolar >noise.txt ||
    Fail 'vx3260-cli.exe could not analyse the saved block'

Start
Window '^VX3260 Evaluation Software$'
Picture 11-no-library
Go Return 'GetPortAddress Error'
Go Return 'Main Menu'
Quit

cp "$OLDPWD/$library" parllio.dll
Start --trace t.vcd
Window 'Main Menu'
ReadBlock 12-read-main-by-library
Go alt+a 'Main Menu'
SaveBlock library.dat 13-write-by-library
Quit
grep -q 'main-data\\040=\\040' t.vcd || Fail 'The trace has no code'

# As from the desktop, without a terminal.
wine start /unix ./vx3260-eval.exe --help >/dev/null 2>&1 <&-
Window '^VX3260 Evaluation Software$'
Picture 14-help-in-a-box
Press Return
timeout 60 wineserver -w || Fail 'The help does not end'

# The installer, page by page; its last one starts the program.
Say "Trying the installer ..."
user=$WINEPREFIX/drive_c/users/$(id -un)
installed="$user/AppData/Local/Programs/VX3260 Evaluation Software"
menu="$user/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/VX3260 Evaluation Software"
rm -rf "$installed" "$menu"
wine "$installer" &
program=$!
Window 'VX3260 Evaluation Software Setup'
Picture 15-installer
Press Return
Press alt+a
Picture 16-installer-folder
Press alt+i
Await 'Nothing was installed' test -f "$installed/uninstall.exe"
Settle
Picture 17-installer-end
xdotool key --clearmodifiers alt+f
wait "$program" || Fail "The installer ended with $?"
Window 'Main Menu'
Picture 18-installed
Go alt+q '^VX3260 Evaluation Software$'
xdotool key --clearmodifiers alt+y
timeout 60 wineserver -w || Fail 'The installed program does not end'
for entry in 'VX3260 Evaluation Software' 'Simulated Board' Handbook 'Read Me'; do
    [ -f "$menu/$entry.lnk" ] || Fail "The start menu has no $entry"
done
[ -f "$installed/handbook/index.html" ] || Fail 'The handbook is not installed'
wine "$installed/vx3260-cli.exe" --simulated noise main --count 20 >noise.txt ||
    Fail 'The installed vx3260-cli.exe could not read the simulated board'

# Over itself, without windows; then away, but for what the user put there.
wine "$installer" /S || Fail 'The installer cannot replace what it installed'
cp parllio.dll "$installed"
wine "$installed/uninstall.exe" /S || Fail "The uninstaller ended with $?"
IsUninstalled() {
    [ "$(ls "$installed")" = parllio.dll ] && [ ! -e "$menu" ] && ! wine reg query \
        'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\vx3260-eval' >/dev/null 2>&1
}
Await 'Not everything is uninstalled' IsUninstalled
rm -r "$installed"
Say "Tried the programs out of the zip on the simulated board, on the port library and without, and" \
    "the installer: installed, started, replaced, uninstalled."
