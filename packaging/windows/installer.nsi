; Installs Korvanta for one user, without administrator rights. scripts/package-windows gives VERSION,
; FOLDER (what to install), REMOVAL (the commands that delete it), ICON and OUTPUT.
!include LogicLib.nsh
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Korvanta"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Korvanta"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvanta"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
Icon "${ICON}"
UninstallIcon "${ICON}"
BrandingText "Korvanta ${VERSION}"
ManifestDPIAware true
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Korvanta"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs Korvanta"
VIAddVersionKey "CompanyName" "The makers of Korvanta"
VIAddVersionKey "LegalCopyright" "Copyright 2026 The makers of Korvanta. All rights reserved."

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; A program that runs cannot be replaced or deleted.
!macro EndWhenRunning PROGRAM
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${PROGRAM}" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONSTOP "Korvanta is running. Close it and try again." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section
  !insertmacro EndWhenRunning "Korvanta.exe"
  !insertmacro EndWhenRunning "korvanta-practice-server.exe"
  SetOutPath "$INSTDIR"
  File /r /x deployment.ini "${FOLDER}\*"
  ; A deployment's own values outlive an update.
  SetOverwrite off
  File "${FOLDER}\deployment.ini"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Korvanta.lnk" "$INSTDIR\Korvanta.exe"
  CreateShortcut "$SMPROGRAMS\Korvanta Practice.lnk" "$INSTDIR\korvanta-practice.exe"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Korvanta"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The makers of Korvanta"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Korvanta.exe"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  !insertmacro EndWhenRunning "Korvanta.exe"
  !insertmacro EndWhenRunning "korvanta-practice-server.exe"
  Delete "$SMPROGRAMS\Korvanta.lnk"
  Delete "$SMPROGRAMS\Korvanta Practice.lnk"
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
