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

; Replaces the path of a file on the stack by 1 when the file is a bitmap as the programs keep icons: 16 x 16, 32 bits a
; pixel. Others that somebody has put there are not ours.
Function un.IsKeptIcon
    Exch $0
    Push $1
    Push $2
    Push $3
    Push $4
    StrCpy $3 ""
    ClearErrors
    FileOpen $1 $0 r
    ${IfNot} ${Errors}
        FileSeek $1 0 END $4
        FileSeek $1 18 SET  ; width and height of four bytes, planes and bits a pixel of two
        ${For} $0 1 12
            FileReadByte $1 $2
            StrCpy $3 "$3$2 "
        ${Next}
        FileClose $1
    ${EndIf}
    StrCpy $0 0
    ${If} $3 == "16 0 0 0 16 0 0 0 1 0 32 0 "
    ${AndIf} $4 = 1078  ; headers of 54 bytes, then the pixels
        StrCpy $0 1
    ${EndIf}
    Pop $4
    Pop $3
    Pop $2
    Pop $1
    Exch $0
FunctionEnd

; Removes the icons in the given folder, and the folder when nothing else is in it. "*.bmp" also finds longer
; endings, by their short names: those are not ours. What is in a folder that is a link lies elsewhere, and stays.
Function un.DeletePictures
    Exch $0
    Push $1
    Push $2
    Push $3
    ${GetFileAttributes} $0 "REPARSE_POINT" $3
    ${If} $3 = 1
        Goto done
    ${EndIf}
    FindFirst $1 $2 "$0\*.bmp"
    ${DoWhile} $2 != ""
        StrCpy $3 $2 "" -4
        ${If} $3 == ".bmp"
            Push "$0\$2"
            Call un.IsKeptIcon
            Pop $3
            ${If} $3 = 1
                Delete "$0\$2"
            ${EndIf}
        ${EndIf}
        FindNext $1 $2
    ${Loop}
    FindClose $1
    RMDir "$0"
  done:
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
    Push $0
    ${GetFileAttributes} "$INSTDIR\Cache" "REPARSE_POINT" $0
    ${If} $0 <> 1
        Push "$INSTDIR\Cache\Filters"
        Call un.DeletePictures
    ${EndIf}
    Push "$INSTDIR\Cache"
    Call un.DeletePictures
    Pop $0
FunctionEnd

!macroend
