# The setup of one width, per machine. packaging/pack gives VERSION, WIDTH (x64 or x86), SOURCE, the folder with the
# files, and OUTPUT. It changes no path, needs no restart, and leaves the settings store alone in both directions.
#   setup.exe /S [/D=C:\Any\Folder]    installs or upgrades in silence; the exit code is 0, or not 0 when it failed
#   uninstall.exe /S                   removes in silence

!if ${WIDTH} == x64
  Target amd64-unicode
  !define NAME "Vrix Toolkit"
  !define PROGRAMS $PROGRAMFILES64
!else
  # Both widths may stand on one machine, so this one has names of its own in the common Start menu.
  Target x86-unicode
  !define NAME "Vrix Toolkit (32-bit)"
  !define PROGRAMS $PROGRAMFILES32
!endif
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define LINKS "$SMPROGRAMS\${NAME}"

SetCompressor /SOLID lzma
Name "${NAME}"
OutFile "${OUTPUT}"
RequestExecutionLevel admin
ManifestSupportedOS all
ManifestDPIAware true
AllowSkipFiles off
InstallDir "${PROGRAMS}\Vrix Toolkit"
InstallDirRegKey HKLM "${UNINSTALL}" InstallLocation
BrandingText "${NAME} ${VERSION}"

VIProductVersion ${VERSION}.0
VIAddVersionKey ProductName "Vrix Administrative Toolkit"
VIAddVersionKey ProductVersion ${VERSION}.0
VIAddVersionKey CompanyName "Vrix"
VIAddVersionKey FileDescription "Setup of the Vrix Administrative Toolkit"
VIAddVersionKey FileVersion ${VERSION}.0
VIAddVersionKey LegalCopyright "Copyright Vrix. All rights reserved."

!include MUI2.nsh
!define MUI_ICON ../src/program/vrix.ico
!define MUI_UNICON ../src/program/vrix.ico
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!macro text name value
  WriteRegStr HKLM "${UNINSTALL}" ${name} `${value}`
!macroend
!macro number name value
  WriteRegDWORD HKLM "${UNINSTALL}" ${name} ${value}
!macroend

# Ends with nothing changed while the program runs, for its file is held then.
!macro stop_if_running program
  ${If} ${FileExists} $INSTDIR\${program}
    ClearErrors
    FileOpen $0 $INSTDIR\${program} a
    ${If} ${Errors}
      SetErrorLevel 2
      Abort "${program} is running. Please close it and start again."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section Program program
  SetShellVarContext all
  !insertmacro stop_if_running VrixToolkit.exe
  !insertmacro stop_if_running VrixToolkitTrial.exe
  SetOutPath $INSTDIR
  File "${SOURCE}/VrixToolkit.exe"
  File "${SOURCE}/VrixToolkitTrial.exe"
  File "${SOURCE}/README.txt"
  !if /FileExists "${SOURCE}/Guide.txt"
    File "${SOURCE}/Guide.txt"
  !endif
  WriteUninstaller $INSTDIR\uninstall.exe

  CreateDirectory "${LINKS}"
  CreateShortcut "${LINKS}\Vrix Administrative Toolkit.lnk" $INSTDIR\VrixToolkit.exe
  CreateShortcut "${LINKS}\Vrix Administrative Toolkit (Trial).lnk" $INSTDIR\VrixToolkitTrial.exe

  SectionGetSize ${program} $0
  !insertmacro text DisplayName "Vrix Administrative Toolkit (${WIDTH})"
  !insertmacro text DisplayVersion ${VERSION}
  !insertmacro text DisplayIcon $INSTDIR\VrixToolkit.exe
  !insertmacro text Publisher Vrix
  !insertmacro text InstallLocation $INSTDIR
  !insertmacro text UninstallString '"$INSTDIR\uninstall.exe"'
  !insertmacro text QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  !insertmacro number EstimatedSize $0
  !insertmacro number NoModify 1
  !insertmacro number NoRepair 1
SectionEnd

Section Uninstall
  SetShellVarContext all
  !insertmacro stop_if_running VrixToolkit.exe
  !insertmacro stop_if_running VrixToolkitTrial.exe
  Delete $INSTDIR\VrixToolkit.exe
  Delete $INSTDIR\VrixToolkitTrial.exe
  Delete $INSTDIR\README.txt
  Delete $INSTDIR\Guide.txt
  Delete $INSTDIR\uninstall.exe
  RMDir $INSTDIR
  Delete "${LINKS}\Vrix Administrative Toolkit.lnk"
  Delete "${LINKS}\Vrix Administrative Toolkit (Trial).lnk"
  RMDir "${LINKS}"
  DeleteRegKey HKLM "${UNINSTALL}"
SectionEnd
