; SPDX-License-Identifier: GPL-3.0-or-later
; The installer for 64-bit Windows, for the user who runs it, without an administrator.
; scripts/build-windows.sh defines VERSION, STAGE, the folder with what is installed, FILES, a script
; with a line for each file and folder of it that the uninstaller removes, ICON and OUTPUT.
; /S installs without windows, /D=FOLDER, as the last option, chooses the folder.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
!include LogicLib.nsh
!include MUI2.nsh
!include WinVer.nsh

!define NAME "VX3260 Evaluation Software"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\vx3260-eval"
!define MENU "$SMPROGRAMS\${NAME}"

Name "${NAME}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation
ManifestDPIAware true
ManifestSupportedOS Win10
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey FileDescription "${NAME}, installer"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "GPL-3.0-or-later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEPAGE_TEXT "This installs the forms and the command line for you alone; no \
administrator is needed.$\r$\n$\r$\nEverything works on a simulated board. For a board on the \
printer port, the port library parllio.dll is needed, which is not part of this program."
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${STAGE}\LICENSE"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TEXT "For a board on the printer port, put the 64-bit parllio.dll into$\r$\n\
$\r$\n$INSTDIR$\r$\n$\r$\nand install the driver that it needs."
!define MUI_FINISHPAGE_TEXT_LARGE
!define MUI_FINISHPAGE_RUN "$INSTDIR\vx3260-eval.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "--simulated"
!define MUI_FINISHPAGE_RUN_TEXT "Start on the simulated board"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\README.txt"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Function .onInit
    ${IfNot} ${AtLeastBuild} 17763
        MessageBox MB_ICONSTOP "${NAME} needs Windows 10 (version 1809) or later." /SD IDOK
        Abort
    ${EndIf}
FunctionEnd

; A running program cannot be replaced: the user closes it and tries again.
!macro CheckClosed program
    ${If} ${FileExists} "$INSTDIR\${program}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${program}" a
        ${If} ${Errors}
            MessageBox MB_ICONEXCLAMATION \
                "${program} is running, or may not be changed. Close it and try again." /SD IDOK
            SetErrorLevel 2
            Abort
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

Section
    !insertmacro CheckClosed vx3260-eval.exe
    !insertmacro CheckClosed vx3260-cli.exe
    ; What an older version has and this one has not goes with it. The folder may be another program's.
    ReadRegStr $0 HKCU "${UNINSTALL}" InstallLocation
    ${If} $0 == $INSTDIR
    ${AndIf} ${FileExists} "$INSTDIR\uninstall.exe"
        ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR' $1
        ${If} $1 <> 0
            MessageBox MB_ICONEXCLAMATION "The older version could not be removed." /SD IDOK
            SetErrorLevel 2
            Abort
        ${EndIf}
    ${EndIf}
    SetOutPath "$INSTDIR"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    ; The folder that a shortcut starts the program in is where it first looks for data files.
    SetOutPath "$DOCUMENTS"
    CreateDirectory "${MENU}"
    CreateShortcut "${MENU}\${NAME}.lnk" "$INSTDIR\vx3260-eval.exe"
    CreateShortcut "${MENU}\Simulated Board.lnk" "$INSTDIR\vx3260-eval.exe" "--simulated"
    CreateShortcut "${MENU}\Handbook.lnk" "$INSTDIR\handbook\index.html"
    CreateShortcut "${MENU}\Read Me.lnk" "$INSTDIR\README.txt"

    WriteRegStr HKCU "${UNINSTALL}" DisplayName "${NAME}"
    WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\vx3260-eval.exe"
    WriteRegStr HKCU "${UNINSTALL}" Publisher "${NAME} maintainers"
    WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    SectionGetSize 0 $0
    WriteRegDWORD HKCU "${UNINSTALL}" EstimatedSize $0
    WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
SectionEnd

; Removes what was installed. What the user put into the folder, such as parllio.dll, stays.
Section Uninstall
    !insertmacro CheckClosed vx3260-eval.exe
    !insertmacro CheckClosed vx3260-cli.exe
    !include "${FILES}"
    RMDir /r "${MENU}"
    DeleteRegKey HKCU "${UNINSTALL}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
SectionEnd
