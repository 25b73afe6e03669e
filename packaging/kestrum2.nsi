; The installer: for the user who runs it, without administrator rights. make.sh passes DIST (the folder that holds
; win64 and win32), ICON, PICTURE (of the last page), VERSION and OUTPUT. Switches when run: /S asks nothing,
; /D=FOLDER installs there; the uninstaller also takes /PURGE, which removes profiles and settings without asking.
Unicode true
!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!include FileFunc.nsh
!include running.nsh
!include leftovers.nsh

!define NAME "Kestrum 2"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestrum2"

Name "${NAME}"
BrandingText "${NAME}, version ${VERSION}"
OutFile "${OUTPUT}"
RequestExecutionLevel user
ManifestSupportedOS all
SetCompressor /SOLID lzma
SetDateSave off  ; the same programs give the same installer
InstallDir "$LOCALAPPDATA\Programs\Kestrum2"  ; without a blank: the start entry names it without quotes
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"  ; where an earlier version is

VIProductVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "Morvell Software"
VIAddVersionKey "FileDescription" "${NAME} Setup"
VIAddVersionKey "FileVersion" "${VERSION}.0"
VIAddVersionKey "LegalCopyright" "Morvell Software"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}.0"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Kestrum2.exe"
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!insertmacro Running ""
!insertmacro Running "un."
!insertmacro Leftovers

; An earlier version is written over. Profiles, the file filter, pictures and settings are not touched.
Section
    Call EndPrograms
    SetOutPath "$INSTDIR"
    SetOverwrite try
    ClearErrors
    ${If} ${IsNativeAMD64}
        File "${DIST}/win64/Kestrum2.exe"
        File "${DIST}/win64/Kestrum_Jr.exe"
    ${Else}
        File "${DIST}/win32/Kestrum2.exe"
        File "${DIST}/win32/Kestrum_Jr.exe"
    ${EndIf}
    File "${DIST}/win32/Help.htm"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    ${If} ${Errors}
        SetErrorLevel 2
        Abort "The files could not be written to $INSTDIR."
    ${EndIf}

    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\Kestrum2.exe"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Morvell Software"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Kestrum2.exe"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    SectionGetSize 0 $0
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
SectionEnd

; What a start entry of ours begins with. One of another copy stays.
!macro DeleteRunEntry name
    Push "${name}"
    Call un.DeleteRunEntry
!macroend

Section "Uninstall"
    Call un.EndPrograms
    Delete "$INSTDIR\Kestrum2.exe"
    Delete "$INSTDIR\Kestrum_Jr.exe"
    Delete "$INSTDIR\Help.htm"
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\${NAME}.lnk"
    !insertmacro DeleteRunEntry "Kestrum2"
    !insertmacro DeleteRunEntry "Kestrum_Jr"
    DeleteRegKey HKCU "${UNINSTALL}"

    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/PURGE" $1
    ${If} ${Errors}
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
            "Do you want to remove your profiles, the file filter and the settings of ${NAME} as well?" \
            /SD IDNO IDYES purge
        Goto kept
    ${EndIf}
  purge:
    Call un.DeleteLeftovers
  kept:
    Call un.DeleteCache
    RMDir "$INSTDIR"  ; stays unless it is empty
SectionEnd
