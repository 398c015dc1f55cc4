; The installer, for the current user only: nothing here needs administrator rights.
; package.sh defines VERSION, INSTALL, LIST, LICENSE, ICON and OUTPUT.
Unicode true
Target amd64-unicode
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon"

Name "Quillon"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Quillon"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true
BrandingText "Quillon ${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\quillon.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!include registration.nsh

LangString IN_USE ${LANG_ENGLISH} "Quillon is running, or its files may not be changed: $1. \
Close all windows of Quillon and wait for running conversions to end, then try again. \
Nothing was changed."
LangString IN_USE ${LANG_GERMAN} "Quillon läuft noch, oder seine Dateien dürfen nicht geändert werden: $1. \
Schließen Sie alle Fenster von Quillon, warten Sie das Ende laufender Konvertierungen ab und \
versuchen Sie es dann noch einmal. Es wurde nichts geändert."
LangString INCOMPLETE ${LANG_ENGLISH} "Not all files could be written, so Quillon is not installed \
completely. Close all programs that use files in $INSTDIR, help windows included, check that the \
disk is not full, and install Quillon again."
LangString INCOMPLETE ${LANG_GERMAN} "Nicht alle Dateien konnten geschrieben werden, daher ist Quillon \
nicht vollständig installiert. Schließen Sie alle Programme, die Dateien in $INSTDIR benutzen, auch \
Hilfefenster, prüfen Sie, ob die Platte voll ist, und installieren Sie Quillon noch einmal."

; Prints an error of a silent run to the console from which it was started.
!macro TellSilent TEXT
  ${If} ${Silent}
    System::Call 'kernel32::AttachConsole(i -1)'
    System::Call 'kernel32::GetStdHandle(i -11) p .r0'
    FileWrite $0 "${TEXT}$\r$\n"
  ${EndIf}
!macroend

; A running program can be neither replaced nor removed. Opening it for writing detects that without
; changing anything. $1 becomes its name.
!macro LookAtProgram FILE
  ${If} ${FileExists} "$INSTDIR\${FILE}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${FILE}" a
    ${If} ${Errors}
      StrCpy $1 "${FILE}"
    ${Else}
      FileClose $0
    ${EndIf}
  ${EndIf}
!macroend

; While a program is in use, exits with code 2 before changing anything.
!macro RefuseWhileInUse
  ${Do}
    StrCpy $1 ""
    !insertmacro LookAtProgram "quillon.exe"
    !insertmacro LookAtProgram "quillon-convert.exe"
    ${If} $1 == ""
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(IN_USE)" /SD IDCANCEL IDCANCEL`
      !insertmacro TellSilent "$(IN_USE)"
      SetErrorLevel 2
      Abort "$(IN_USE)"
    ${EndIf}
  ${Loop}
!macroend

; The program uses the installer's language until its user chooses another.
!macro SetFirstLanguage
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "DisplayVersion"
  ${If} $0 == ""
  ${AndIfNot} ${FileExists} "$INSTDIR\larkspur.ini"
  ${AndIfNot} ${FileExists} "$APPDATA\Quillon\larkspur.ini"
    ${If} $LANGUAGE == ${LANG_GERMAN}
      WriteINIStr "$INSTDIR\larkspur.ini" "global" "language" "0"
    ${Else}
      WriteINIStr "$INSTDIR\larkspur.ini" "global" "language" "10000"
    ${EndIf}
  ${EndIf}
!macroend

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "Quillon"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "Installer of Quillon"
VIAddVersionKey /LANG=0 "LegalCopyright" "The Quillon developers"

Section
  SetShellVarContext current
  !insertmacro RefuseWhileInUse
  ClearErrors
  !include "${INSTALL}"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "$(INCOMPLETE)" /SD IDOK
    !insertmacro TellSilent "$(INCOMPLETE)"
    SetErrorLevel 2
    Abort "$(INCOMPLETE)"
  ${EndIf}
  !insertmacro SetFirstLanguage
  CreateShortcut "$SMPROGRAMS\Quillon.lnk" "$INSTDIR\quillon.exe"
  !insertmacro Register
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quillon"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quillon.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Quillon developers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; Removes what was installed and what the program itself writes there. Other files stay, and then the
; folder stays as well.
Section "Uninstall"
  SetShellVarContext current
  !insertmacro RefuseWhileInUse
  !include "${LIST}"
  Delete "$INSTDIR\larkspur.ini"
  Delete "$INSTDIR\quillon.cfh"
  Delete "$INSTDIR\quillon.ERR"
  Delete "$INSTDIR\quillon.EPT"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Quillon.lnk"
  !insertmacro Unregister
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
