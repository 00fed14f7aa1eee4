; Adds a folder to the machine's PATH, or removes it. The strings of an installer are shorter than some PATHs, and a
; PATH that passes through them is cut. Here it never does: it is read, changed and written in memory of its own.
; It stays as it is if it cannot be read, or is no text.

!define ENVIRONMENT_KEY "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
!define TEXT_TYPE 1 ; REG_SZ
!define EXPANDABLE_TEXT_TYPE 2 ; REG_EXPAND_SZ
!define NOT_FOUND 2 ; ERROR_FILE_NOT_FOUND

; Reads PATH. Afterwards:
;   $0  0, or the error of the system
;   $2  the open key
;   $3  the type of the value
;   $5  memory with ";", the PATH, ";" unless the PATH is empty or ends with one, and room for the folder $1
;   $6  the PATH in it
;   $7  1 if the last ";" was added
!macro ReadMachinePath
    StrCpy $5 0
    StrCpy $7 0
    System::Call 'advapi32::RegOpenKeyExW(p -2147483646, w "${ENVIRONMENT_KEY}", i 0, i 3, *p .r2) i .r0' ; HKLM, to read and set values
    ${If} $0 == 0
        System::Call 'advapi32::RegQueryValueExW(p r2, w "Path", p 0, *i .r3, p 0, *i 0 r4) i .r0'
        ${If} $0 == ${NOT_FOUND}
            StrCpy $0 0
            StrCpy $3 ${EXPANDABLE_TEXT_TYPE}
            StrCpy $4 0
        ${ElseIf} $0 == 0
        ${AndIf} $3 != ${TEXT_TYPE}
        ${AndIf} $3 != ${EXPANDABLE_TEXT_TYPE}
            StrCpy $0 "it is no text"
        ${EndIf}
    ${EndIf}
    ${If} $0 == 0
        StrLen $8 $1
        IntOp $8 $8 + 8 ; semicolons and ends of text
        IntOp $8 $8 * 2
        IntOp $8 $8 + $4
        System::Alloc $8
        Pop $5 ; it is all zeros
        IntPtrOp $6 $5 + 2
        System::Call 'kernel32::lstrcpyW(p r5, w ";")'
        ${If} $4 > 0
            System::Call 'advapi32::RegQueryValueExW(p r2, w "Path", p 0, p 0, p r6, *i r4) i .r0'
        ${EndIf}
        System::Call 'kernel32::lstrlenW(p r6) i .r8'
        ${If} $8 > 0
            !insertmacro LastLetter
            ${If} $9 != ";"
                System::Call 'kernel32::lstrcatW(p r6, w ";")'
                StrCpy $7 1
            ${EndIf}
        ${EndIf}
        System::Call 'shlwapi::StrStrIW(p r5, w ";$1;") p .r8' ; where the folder is, or 0
    ${EndIf}
!macroend

; The last letter of the text at $6, which has $8 letters: its address is put in $4, and the letter in $9.
!macro LastLetter
    IntOp $4 $8 - 1
    IntOp $4 $4 * 2
    IntPtrOp $4 $6 + $4
    System::Call '*$4(&w1 .r9)'
!macroend

; Writes the PATH at $6, and lets running programs know.
!macro WriteMachinePath
    System::Call 'kernel32::lstrlenW(p r6) i .r8'
    IntOp $8 $8 + 1
    IntOp $8 $8 * 2
    System::Call 'advapi32::RegSetValueExW(p r2, w "Path", i 0, i r3, p r6, i r8) i .r0'
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 STR:Environment /TIMEOUT=5000
!macroend

!macro CloseMachinePath ADVICE
    ${If} $5 != 0
        System::Free $5
    ${EndIf}
    System::Call 'advapi32::RegCloseKey(p r2)'
    ${If} $0 != 0
        !insertmacro ReportFailure "The machine's PATH cannot be changed ($0). ${ADVICE}"
    ${EndIf}
!macroend

; Adds the folder on the stack to the end of PATH, unless it is there. Uses $0 to $9.
Function addToMachinePath
    Pop $1
    !insertmacro ReadMachinePath
    ${If} $0 == 0
    ${AndIf} $8 == 0
        System::Call 'kernel32::lstrcatW(p r6, w r1)'
        !insertmacro WriteMachinePath
    ${EndIf}
    !insertmacro CloseMachinePath "To start vistrel by its name, add $1 to it."
FunctionEnd

; Removes the folder on the stack from PATH, if it is there. Uses $0 to $9.
Function un.removeFromMachinePath
    Pop $1
    !insertmacro ReadMachinePath
    ${If} $0 == 0
    ${AndIf} $8 != 0
        StrLen $9 $1
        IntOp $9 $9 + 1
        IntOp $9 $9 * 2
        IntPtrOp $9 $8 + $9 ; the ";" after the folder
        System::Call 'kernel32::lstrlenW(p r9) i .r4'
        IntOp $4 $4 + 1
        IntOp $4 $4 * 2
        System::Call 'kernel32::RtlMoveMemory(p r8, p r9, p r4)'
        System::Call 'kernel32::lstrlenW(p r6) i .r8'
        ${If} $7 == 1
        ${AndIf} $8 > 0
            !insertmacro LastLetter
            System::Call '*$4(&i2 0)'
        ${EndIf}
        !insertmacro WriteMachinePath
    ${EndIf}
    !insertmacro CloseMachinePath "Remove $1 from it."
FunctionEnd
