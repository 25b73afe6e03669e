; Asks the programs in $INSTDIR to end, before their files are written over or removed. PREFIX is "" or "un.".

!define WM_CLOSE_ 0x0010
!define WM_QUERYENDSESSION_ 0x0011
!define WM_ENDSESSION_ 0x0016
!define CLOSE_APPLICATION 1  ; ENDSESSION_CLOSEAPP
!define TRIES 100            ; of a tenth of a second

!macro Running PREFIX

; Puts 1 on the stack while the program of the given name runs from $INSTDIR: nobody may write to it then.
Function ${PREFIX}IsRunning
    Exch $0
    Push $1
    ${If} ${FileExists} "$INSTDIR\$0"
        ClearErrors
        FileOpen $1 "$INSTDIR\$0" a
        ${If} ${Errors}
            StrCpy $0 1
        ${Else}
            FileClose $1
            StrCpy $0 0
        ${EndIf}
    ${Else}
        StrCpy $0 0
    ${EndIf}
    Pop $1
    Exch $0
FunctionEnd

; The main window hides when it is closed; it ends as it does when the user logs off. A closed Kestrum Jr. ends.
Function ${PREFIX}AskToEnd
    Exch $0
    Push $1
    ${If} $0 == "Kestrum2.exe"
        FindWindow $1 "Form1" "Kestrum 2"
        ${If} $1 <> 0
            SendMessage $1 ${WM_QUERYENDSESSION_} 0 ${CLOSE_APPLICATION} /TIMEOUT=5000
            SendMessage $1 ${WM_ENDSESSION_} 1 ${CLOSE_APPLICATION} /TIMEOUT=5000
        ${EndIf}
    ${Else}
        FindWindow $1 "KestrumJr" "  Kestrum Jr."
        ${If} $1 <> 0
            SendMessage $1 ${WM_CLOSE_} 0 0 /TIMEOUT=5000
        ${EndIf}
    ${EndIf}
    Pop $1
    Pop $0
FunctionEnd

; Ends the program of the given name, or this one when the user gives up.
Function ${PREFIX}EndProgram
    Exch $0
    Push $1
    Push $2
  again:
    Push $0
    Call ${PREFIX}IsRunning
    Pop $1
    ${If} $1 = 1
        StrCpy $2 0
        ${DoWhile} $2 < ${TRIES}
            Push $0  ; again and again: one that has just been started has no window yet
            Call ${PREFIX}AskToEnd
            Push $0
            Call ${PREFIX}IsRunning
            Pop $1
            ${If} $1 = 0
                ${ExitDo}
            ${EndIf}
            Sleep 100
            IntOp $2 $2 + 1
        ${Loop}
        ${If} $1 = 1
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 is running. Please exit it, then try again." \
                /SD IDCANCEL IDRETRY again
            SetErrorLevel 2
            Abort "$0 is running."
        ${EndIf}
    ${EndIf}
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

Function ${PREFIX}EndPrograms
    Push "Kestrum2.exe"
    Call ${PREFIX}EndProgram
    Push "Kestrum_Jr.exe"
    Call ${PREFIX}EndProgram
FunctionEnd

!macroend
