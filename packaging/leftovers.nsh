; What the programs leave behind: start entries, pictures, and what is the user's (profiles, filter, settings).

!define RUN "Software\Microsoft\Windows\CurrentVersion\Run"

!macro Leftovers

; Removes the start entry of the given name unless it starts a copy elsewhere.
Function un.DeleteRunEntry
    Exch $0
    Push $1
    Push $2
    ReadRegStr $1 HKCU "${RUN}" $0
    StrCpy $2 $1 1
    ${If} $2 == '"'
        StrCpy $1 $1 "" 1
    ${EndIf}
    StrLen $2 "$INSTDIR\"
    StrCpy $1 $1 $2
    ${If} $1 == "$INSTDIR\"
        DeleteRegValue HKCU "${RUN}" $0
    ${EndIf}
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

; Removes the pictures in the given folder, and the folder when nothing else is in it. "*.bmp" also finds longer
; endings, by their short names: those are not ours.
Function un.DeletePictures
    Exch $0
    Push $1
    Push $2
    Push $3
    FindFirst $1 $2 "$0\*.bmp"
    ${DoWhile} $2 != ""
        StrCpy $3 $2 "" -4
        ${If} $3 == ".bmp"
            Delete "$0\$2"
        ${EndIf}
        FindNext $1 $2
    ${Loop}
    FindClose $1
    RMDir "$0"
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

; A file that is written goes by its name with ".new" first, or with ".new2" or ".new3".
Function un.DeleteLeftovers
    Push $0
    ${For} $0 1 5
        Delete "$INSTDIR\My Favs $0"
        Delete "$INSTDIR\My Favs $0.new"
        Delete "$INSTDIR\My Favs $0.new2"
        Delete "$INSTDIR\My Favs $0.new3"
    ${Next}
    Delete "$INSTDIR\FileFilter"
    Delete "$INSTDIR\FileFilter.new"
    Delete "$INSTDIR\FileFilter.new2"
    Delete "$INSTDIR\FileFilter.new3"
    DeleteRegKey HKCU "Software\Morvell\Kestrum2"
    DeleteRegKey /ifempty HKCU "Software\Morvell"
    Pop $0
FunctionEnd

; Pictures are made anew from the programs they are of: they go in any case.
Function un.DeleteCache
    Push "$INSTDIR\Cache\Filters"
    Call un.DeletePictures
    Push "$INSTDIR\Cache"
    Call un.DeletePictures
FunctionEnd

!macroend
