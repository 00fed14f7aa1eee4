' A clipboard passed as a variable is replaced; one passed as a value is filled.
Option Explicit
Dim frames, clip, old, values(1)

Sub Check(sentence, actual, wanted)
    If actual = wanted Then
        WScript.Echo "ok " & sentence
    Else
        WScript.Echo "FAILED " & sentence & ": is [" & actual & "], should be [" & wanted & "]"
    End If
End Sub

Set frames = CreateObject("qrtVistrelClasses4.FrameInfoClass")
Set clip = CreateObject("qrtVistrelClasses4.FrameInfoClass")
Set old = clip
frames.CopyInfo 1, 2, clip
Check "a variable gets a new object, and the old one stays", old.TotalFrames & " " & clip.TotalFrames, "20 2"
frames.CopyInfo 1, 3, (clip)
Check "an expression is an object to fill", clip.TotalFrames, 3
Set values(1) = old
frames.CutInfo 1, 4, values(1)
Check "an element is a variable", old.TotalFrames & " " & values(1).TotalFrames & " " & frames.TotalFrames, "20 4 16"
frames.DisplayWidth = 8
frames.DisplayHeight = 8
Check "a picture is saved", frames.SavePictureOfFrame(1, WScript.Arguments(0) & "frame.bmp"), True
WScript.Echo "the script ran to its end"
