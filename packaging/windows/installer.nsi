; The installer: one folder below the user's own programs (no administrator needed, so
; that the data folder beside the program can be written), a start-menu entry, an
; entry in the list of programs, and a way out again that leaves the user's data.
Target amd64-unicode
!include "MUI2.nsh"

Name "Kestrin ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Kestrin"
InstallDirRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrin" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma

!define MUI_ICON "${ROOT}/app/resources/kestrin.ico"
!define MUI_UNICON "${ROOT}/app/resources/kestrin.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\kestrin.exe"
!insertmacro MUI_PAGE_LICENSE "${ROOT}/LICENSE"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrin"

Section "Kestrin"
  SetOutPath "$INSTDIR"
  File /r "${STAGE}\*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Kestrin.lnk" "$INSTDIR\kestrin.exe"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Kestrin"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\kestrin.exe"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  Delete "$SMPROGRAMS\Kestrin.lnk"
  DeleteRegKey HKCU "${UNINSTALL}"
  ; Only what was installed: TrevaskData beside the program is the user's.
  Delete "$INSTDIR\*.exe"
  Delete "$INSTDIR\*.dll"
  Delete "$INSTDIR\README.txt"
  RMDir /r "$INSTDIR\platforms"
  RMDir /r "$INSTDIR\styles"
  RMDir /r "$INSTDIR\licences"
  RMDir "$INSTDIR"
SectionEnd
