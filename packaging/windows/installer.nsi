; The installer: one folder below the user's own programs (no administrator needed, so
; that the data folder beside the program can be written), a start-menu entry, an
; entry in the list of programs, and a way out again that leaves the user's data.
Target amd64-unicode
!include "MUI2.nsh"
!include "LogicLib.nsh"

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

; Asked before anything is touched: Windows does not let go of a program that runs, and
; half an installation would be left.
!define RUNNING "Kestrin is running. Close it and try again."
!macro Leave
  MessageBox MB_OK|MB_ICONSTOP "${RUNNING}" /SD IDOK
  SetErrorLevel 2
  Abort "${RUNNING}"
!macroend
!macro LeaveIfRunning PROGRAM
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${PROGRAM}" a
    ${If} ${Errors}
      !insertmacro Leave
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section "Kestrin"
  !insertmacro LeaveIfRunning "kestrin.exe"
  !insertmacro LeaveIfRunning "kestrin-export.exe"
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
  !insertmacro LeaveIfRunning "kestrin-export.exe"
  ClearErrors
  Delete "$INSTDIR\kestrin.exe"
  ${If} ${Errors}
    !insertmacro Leave
  ${EndIf}
  ; Only what was installed: TrevaskData beside the program, and whatever else lies
  ; there, is the user's.
  !include "${LIST}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Kestrin.lnk"
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
