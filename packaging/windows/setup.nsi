; The installer: for the user alone, without an administrator's rights; silent with /S.
; Given by tools/windows/build.sh: VERSION, OUTPUT, ICON, SIZE (KB) and FILES, which holds the macros InstallFiles and
; RemoveFiles, a line for each file.
Unicode true
Target amd64-unicode
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true
; A file that can't be written ends the installer, silently with exit code 2.
AllowSkipFiles off

!include FileFunc.nsh
!include MUI2.nsh
!include "${FILES}"

Name "ZELVO"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\DoctorZELVO"
; Where it stands already.
InstallDirRegKey HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall\DoctorZELVO" "InstallLocation"
BrandingText "ZELVO ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "ZELVO"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "ZELVO"
VIAddVersionKey "CompanyName" "DoctorZELVO"
VIAddVersionKey "LegalCopyright" "DoctorZELVO"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\DoctorZELVO"
!define /math MEGABYTES ${SIZE} / 1024
!define SAMPLE_CHART "$SMPROGRAMS\ZELVO 예제 차트.lnk"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin\zelvo-demo.exe"
!define MUI_FINISHPAGE_RUN_TEXT "예제 차트 열기"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Korean"

; A chart that has the component loaded, or a window of it, keeps its files: nothing is half replaced. Ends with exit code 3
; where nobody can be asked.
!macro WaitUntilClosed UN
Function ${UN}WaitUntilClosed
  again:
    ClearErrors
    IfFileExists "$INSTDIR\bin\DoctorZELVO.dll" 0 free
    FileOpen $0 "$INSTDIR\bin\DoctorZELVO.dll" a
    IfErrors held
    FileClose $0
    IfFileExists "$INSTDIR\bin\zelvo-pharmacy.exe" 0 free
    FileOpen $0 "$INSTDIR\bin\zelvo-pharmacy.exe" a
    IfErrors held
    FileClose $0
    Goto free
  held:
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "ZELVO가 열려 있습니다. 차트와 ZELVO를 모두 닫은 뒤 다시 시도하십시오." /SD IDCANCEL IDRETRY again
    SetErrorLevel 3
    Quit
  free:
FunctionEnd
!macroend
!insertmacro WaitUntilClosed ""
!insertmacro WaitUntilClosed "un."

; An older copy is not taken away for one that has no room.
Function WaitForSpace
  ${GetRoot} "$INSTDIR" $0
  again:
    ${DriveSpace} "$0\" "/D=F /S=M" $1
    IfErrors enough
    IntCmp $1 ${MEGABYTES} short short enough
  short:
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 드라이브에 빈 공간이 ${MEGABYTES} MB 넘게 있어야 합니다. 공간을 비운 뒤 다시 시도하십시오." /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Quit
  enough:
FunctionEnd

Section "ZELVO"
  Call WaitUntilClosed
  Call WaitForSpace
  ; What an older one brought is taken away by its own list; the demo's orders stay.
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  StrCmp $1 "" fresh
  IfFileExists "$1\uninstall.exe" 0 fresh
  takeAway:
  ; It stays so where the program can't even be started.
  StrCpy $0 error
  ExecWait '"$1\uninstall.exe" /S /UPDATE _?=$1' $0
  StrCmp $0 0 taken
  ; The object's entries were not to be taken away: they are written anew.
  StrCmp $0 4 taken
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "ZELVO가 열려 있습니다. 차트와 ZELVO를 모두 닫은 뒤 다시 시도하십시오." /SD IDCANCEL IDRETRY takeAway
    SetErrorLevel 3
    Quit
  taken:
  ; It can't take itself away.
  Delete "$1\uninstall.exe"
  RMDir "$1"
  fresh:
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  ClearErrors
  WriteUninstaller "$INSTDIR\uninstall.exe"
  IfErrors 0 written
    MessageBox MB_OK|MB_ICONSTOP "$INSTDIR\uninstall.exe 파일을 쓰지 못했습니다." /SD IDOK
    SetErrorLevel 2
    Abort
  written:
  StrCpy $0 error
  ExecWait '"$INSTDIR\bin\DoctorZELVO.exe" /register' $0
  StrCmp $0 0 registered
    MessageBox MB_OK|MB_ICONEXCLAMATION "자동화 개체 DoctorZELVO.clsZELVOInterface를 등록하지 못했습니다. ($0)" /SD IDOK
    SetErrorLevel 4
  registered:
  SetOutPath "$INSTDIR\bin"
  CreateShortCut "${SAMPLE_CHART}" "$INSTDIR\bin\zelvo-demo.exe" "" "$INSTDIR\bin\zelvo-chart.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "ZELVO"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bin\zelvo-chart.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "DoctorZELVO"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "un.ZELVO"
  Call un.WaitUntilClosed
  IfFileExists "$INSTDIR\bin\DoctorZELVO.exe" 0 unregistered
  StrCpy $0 error
  ExecWait '"$INSTDIR\bin\DoctorZELVO.exe" /unregister' $0
  StrCmp $0 0 unregistered
    MessageBox MB_OK|MB_ICONEXCLAMATION "자동화 개체 DoctorZELVO.clsZELVOInterface의 등록을 해제하지 못했습니다. ($0)" /SD IDOK
    SetErrorLevel 4
  unregistered:
  SetOutPath "$TEMP"
  !insertmacro RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "${SAMPLE_CHART}"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ; The demo's pharmacy goes with the demo; logs, settings and orders in the making are the user's.
  ClearErrors
  ${GetParameters} $0
  ${GetOptions} $0 "/UPDATE" $1
  IfErrors 0 kept
    Delete "$LOCALAPPDATA\zelvo\pharmacy.db"
    Delete "$LOCALAPPDATA\zelvo\pharmacy.db-wal"
    Delete "$LOCALAPPDATA\zelvo\pharmacy.db-shm"
    Delete "$LOCALAPPDATA\zelvo\pharmacy.db.ready"
    RMDir "$LOCALAPPDATA\zelvo"
  kept:
SectionEnd
