; What Explorer and Start know of the programs, for the current user: "Open with" offers Quillon for
; .dxf, which stays with the program that has it, and the programs are found by their names. Keys that
; others may use too are left as they are, but for our own values in them.

!define CLASSES "Software\Classes"
!define APPLICATION "${CLASSES}\Applications\quillon.exe"
!define DRAWING_CLASS "Quillon.Drawing"
!define DRAWING "${CLASSES}\${DRAWING_CLASS}"
!define OPEN_WITH "${CLASSES}\.dxf\OpenWithProgids"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths"

LangString DRAWING_NAME ${LANG_ENGLISH} "DXF drawing"
LangString DRAWING_NAME ${LANG_GERMAN} "DXF-Zeichnung"

!macro RegisterOpening KEY
  WriteRegStr HKCU "${KEY}\DefaultIcon" "" '"$INSTDIR\quillon.exe",0'
  WriteRegStr HKCU "${KEY}\shell\open\command" "" '"$INSTDIR\quillon.exe" "%1"'
!macroend

!macro UnregisterOpening KEY
  DeleteRegValue HKCU "${KEY}\shell\open\command" ""
  DeleteRegKey /ifempty HKCU "${KEY}\shell\open\command"
  DeleteRegKey /ifempty HKCU "${KEY}\shell\open"
  DeleteRegKey /ifempty HKCU "${KEY}\shell"
  DeleteRegValue HKCU "${KEY}\DefaultIcon" ""
  DeleteRegKey /ifempty HKCU "${KEY}\DefaultIcon"
!macroend

!macro RegisterPath FILE
  WriteRegStr HKCU "${APP_PATHS}\${FILE}" "" "$INSTDIR\${FILE}"
  WriteRegStr HKCU "${APP_PATHS}\${FILE}" "Path" "$INSTDIR"
!macroend

!macro UnregisterPath FILE
  ReadRegStr $0 HKCU "${APP_PATHS}\${FILE}" ""
  ${If} $0 == "$INSTDIR\${FILE}"
    DeleteRegValue HKCU "${APP_PATHS}\${FILE}" ""
    DeleteRegValue HKCU "${APP_PATHS}\${FILE}" "Path"
    DeleteRegKey /ifempty HKCU "${APP_PATHS}\${FILE}"
  ${EndIf}
!macroend

; Explorer looks at the types of files again (SHCNE_ASSOCCHANGED).
!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

!macro Register
  !insertmacro RegisterOpening "${APPLICATION}"
  WriteRegStr HKCU "${APPLICATION}" "FriendlyAppName" "Quillon"
  WriteRegStr HKCU "${APPLICATION}\SupportedTypes" ".dxf" ""
  !insertmacro RegisterOpening "${DRAWING}"
  WriteRegStr HKCU "${DRAWING}" "" "$(DRAWING_NAME)"
  WriteRegStr HKCU "${OPEN_WITH}" "${DRAWING_CLASS}" ""
  !insertmacro RegisterPath "quillon.exe"
  !insertmacro RegisterPath "quillon-convert.exe"
  !insertmacro TellExplorer
!macroend

; Another installation, in another folder, keeps what leads to it.
!macro Unregister
  ReadRegStr $0 HKCU "${DRAWING}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\quillon.exe" "%1"'
    DeleteRegValue HKCU "${OPEN_WITH}" "${DRAWING_CLASS}"
    DeleteRegKey /ifempty HKCU "${OPEN_WITH}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.dxf"
    !insertmacro UnregisterOpening "${DRAWING}"
    DeleteRegValue HKCU "${DRAWING}" ""
    DeleteRegKey /ifempty HKCU "${DRAWING}"
    DeleteRegValue HKCU "${APPLICATION}\SupportedTypes" ".dxf"
    DeleteRegKey /ifempty HKCU "${APPLICATION}\SupportedTypes"
    !insertmacro UnregisterOpening "${APPLICATION}"
    DeleteRegValue HKCU "${APPLICATION}" "FriendlyAppName"
    DeleteRegKey /ifempty HKCU "${APPLICATION}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\Applications"
  ${EndIf}
  !insertmacro UnregisterPath "quillon.exe"
  !insertmacro UnregisterPath "quillon-convert.exe"
  DeleteRegKey /ifempty HKCU "${APP_PATHS}"
  !insertmacro TellExplorer
!macroend
