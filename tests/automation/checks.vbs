' What every script starts with: checks that go on after a failure, and the line that tells that it ran to its end.
Dim passed, failed

Sub Check(sentence, condition)
    If condition Then
        passed = passed + 1
        WScript.Echo "ok " & sentence
    Else
        failed = failed + 1
        WScript.Echo "FAILED " & sentence
    End If
End Sub

Sub CheckEqual(sentence, actual, wanted)
    Check sentence, actual = wanted
    If actual <> wanted Then WScript.Echo "    is [" & actual & "], should be [" & wanted & "]"
End Sub

' For use after On Error Resume Next; forgets the error.
Sub CheckError(sentence, wanted)
    CheckEqual sentence, Err.Number, wanted
    Err.Clear
End Sub

Sub Finish()
    WScript.Echo passed & " passed, " & failed & " failed"
End Sub

Dim folder
passed = 0
failed = 0
' A folder for files of the script, ending in a separator.
folder = WScript.Arguments(0)
