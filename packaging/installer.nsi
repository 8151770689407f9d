# The setup of one width, per machine. packaging/pack gives VERSION, WIDTH (x64 or x86), UPGRADE, the upgrade code of the
# MSI of this width, LIST, a file with the names of the packed files, SOURCE, the folder with the files, and OUTPUT. It
# changes no path, needs no restart, and leaves the settings store alone in both directions.
#   setup.exe /S [/LOG=file] [/D=C:\Any\Folder]       installs or upgrades in silence
#   uninstall.exe /S [/LOG=file]                      removes in silence, going on after its command has returned
#   uninstall.exe /S [/LOG=file] _?=C:\The\Folder     waits and gives its exit code; of the files it leaves itself
# Exit codes: 0 done, 1602 ended by the user, 1618 busy (a program or another setup runs), 1638 another package is
# installed that this one does not replace, 2 failed.

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
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"'
!endif

VIProductVersion ${VERSION}.0
VIAddVersionKey ProductName "Vrix Administrative Toolkit"
VIAddVersionKey ProductVersion ${VERSION}.0
VIAddVersionKey CompanyName "Vrix"
VIAddVersionKey FileDescription "Setup of the Vrix Administrative Toolkit"
VIAddVersionKey FileVersion ${VERSION}.0
VIAddVersionKey LegalCopyright "Copyright Vrix. All rights reserved."

!include MUI2.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include "${LIST}"  # each_file and each_program
!define MUI_ICON ../src/program/vrix.ico
!define MUI_UNICON ../src/program/vrix.ico
!define MUI_CUSTOMFUNCTION_ABORT ended_by_user
!define MUI_CUSTOMFUNCTION_UNABORT un.ended_by_user
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var log  # the file of /LOG=, or empty

!macro say text
  DetailPrint `${text}`
  ${If} $log != ""
    FileWrite $log `${text}$\r$\n`
  ${EndIf}
!macroend

!macro refuse code text
  !insertmacro say `${text}`
  !insertmacro say "exit code ${code}"
  SetErrorLevel ${code}
  Abort `${text}`
!macroend

!macro start do
  SetShellVarContext all
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 /LOG= $1
  ${IfNot} ${Errors}
    FileOpen $log $1 w
    ${If} ${Errors}
      SetErrorLevel 2
      Quit
    ${EndIf}
  ${EndIf}
  ${GetTime} "" L $0 $1 $2 $3 $4 $5 $6
  !insertmacro say "$2-$1-$0 $4:$5:$6 ${do} ${NAME} ${VERSION} in $INSTDIR"
!macroend

# Ends with nothing changed while the program runs, for its file is held then.
!macro stop_if_running program
  ${If} ${FileExists} $INSTDIR\${program}
    ClearErrors
    FileOpen $0 $INSTDIR\${program} a
    ${If} ${Errors}
      !insertmacro refuse 1618 "${program} is running or held. Please close it and start again."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

# Of two at the same time the second ends.
!macro stop_if_busy
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "Global\${NAME} setup") p .r0 ?e'
  Pop $0
  ${If} $0 = 183
    !insertmacro refuse 1618 "Another setup of this program is running."
  ${EndIf}
!macroend

# A newer program stays, and so does one that came with the MSI, whose own record this setup cannot write.
!macro stop_if_not_mine
  ReadRegStr $0 HKLM "${UNINSTALL}" DisplayVersion
  ${VersionCompare} "$0" ${VERSION} $1
  ${If} $1 = 1
    !insertmacro refuse 1638 "The newer version $0 is installed."
  ${EndIf}
  System::Call 'msi::MsiEnumRelatedProductsW(w "${UPGRADE}", i 0, i 0, w .r1) i .r0'
  ${If} $0 = 0
    !insertmacro refuse 1638 "The program was installed by its MSI. Please use the MSI, or remove it first."
  ${EndIf}
!macroend

!macro text name value
  WriteRegStr HKLM "${UNINSTALL}" ${name} `${value}`
!macroend
!macro number name value
  WriteRegDWORD HKLM "${UNINSTALL}" ${name} ${value}
!macroend
!macro install file
  File "${SOURCE}/${file}"
  !insertmacro say "wrote $INSTDIR\${file}"
!macroend
!macro remove file
  Delete $INSTDIR\${file}
  !insertmacro say "removed $INSTDIR\${file}"
!macroend

Function ended_by_user
  SetErrorLevel 1602
FunctionEnd
Function un.ended_by_user
  SetErrorLevel 1602
FunctionEnd

Section Program program
  !insertmacro start "Installing"
  !insertmacro stop_if_busy
  !insertmacro stop_if_not_mine
  !insertmacro each_program stop_if_running
  SetOutPath $INSTDIR
  !insertmacro each_file install
  Delete $INSTDIR\Guide.txt  # of older versions
  WriteUninstaller $INSTDIR\uninstall.exe

  CreateDirectory "${LINKS}"
  CreateShortcut "${LINKS}\Administrator's Guide.lnk" $INSTDIR\Guide.html
  StrCpy $OUTDIR "%USERPROFILE%\Documents"  # where the programs start, for each user
  CreateShortcut "${LINKS}\Vrix Administrative Toolkit.lnk" $INSTDIR\VrixToolkit.exe
  CreateShortcut "${LINKS}\Vrix Administrative Toolkit (Trial).lnk" $INSTDIR\VrixToolkitTrial.exe

  SectionGetSize ${program} $0
  !insertmacro text DisplayName "Vrix Administrative Toolkit (${WIDTH})"
  !insertmacro text DisplayVersion ${VERSION}
  !insertmacro text DisplayIcon $INSTDIR\VrixToolkit.exe
  !insertmacro text Publisher Vrix
  !insertmacro text InstallLocation $INSTDIR
  !insertmacro text UninstallString '"$INSTDIR\uninstall.exe"'
  !insertmacro text QuietUninstallString '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  !insertmacro number EstimatedSize $0
  !insertmacro number NoModify 1
  !insertmacro number NoRepair 1
  !insertmacro say "exit code 0"
SectionEnd

Section Uninstall
  !insertmacro start "Removing"
  !insertmacro stop_if_busy
  !insertmacro each_program stop_if_running
  !insertmacro each_file remove
  Delete $INSTDIR\uninstall.exe  # which stays, alone, where a removal that waits runs from it
  SetOutPath $TEMP
  RMDir $INSTDIR
  Delete "${LINKS}\Vrix Administrative Toolkit.lnk"
  Delete "${LINKS}\Vrix Administrative Toolkit (Trial).lnk"
  Delete "${LINKS}\Administrator's Guide.lnk"
  RMDir "${LINKS}"
  DeleteRegKey HKLM "${UNINSTALL}"
  !insertmacro say "exit code 0"
SectionEnd
