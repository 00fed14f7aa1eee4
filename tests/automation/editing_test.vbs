' Frames are inserted, moved, copied and exported through script variables.
Dim playfile, clip, other, first, last, isLast, unset, number

Function Names(ofPlayfile)
    Dim i
    For i = 1 To ofPlayfile.TotalFrames
        ofPlayfile.CurrentFrame = i
        Names = Names & "[" & ofPlayfile.FrameName & "]"
    Next
End Function

Function NewPlayfile(letters)
    Dim i
    Set NewPlayfile = CreateObject("qrtVistrelClasses4.FrameInfoClass")
    NewPlayfile.TotalFrames = Len(letters)
    For i = 1 To Len(letters)
        NewPlayfile.CurrentFrame = i
        NewPlayfile.FrameName = Mid(letters, i, 1)
        NewPlayfile.FrameType = i Mod 3
        NewPlayfile.DelayTime = 1.5
    Next
End Function

Set playfile = NewPlayfile("ABCDEF")
playfile.MoveFrame 2, 5
CheckEqual "a frame moves down", Names(playfile), "[A][C][D][E][B][F]"
first = 5 : last = 2
playfile.MoveFrame first, last
CheckEqual "and up again, told by variables", Names(playfile), "[A][B][C][D][E][F]"

first = "2" : last = 2.4
playfile.MoveFrame first, last
CheckEqual "numbers that are not changed stay what they were", VarType(first) & VarType(last), "85"

first = 5 : last = 3 : Set clip = Nothing
playfile.CopyInfo first, last, clip
CheckEqual "copying orders the variables", first & "-" & last, "3-5"
CheckEqual "and makes a clipboard", clip.TotalFrames & Names(clip), "3[C][D][E]"
playfile.CopyInfo 1, 2, clip
CheckEqual "which the next copy replaces", Names(clip), "[A][B]"
playfile.CopyInfo 6, 7, unset
CheckEqual "a range outside leaves a clipboard of empty frames, also in a fresh variable", unset.TotalFrames, 20

playfile.PasteInfo 6, clip
CheckEqual "the clipboard is pasted before a frame", Names(playfile), "[A][B][C][D][E][A][B][F]"
playfile.PasteInfo 1, Nothing
CheckEqual "nothing is pasted from Nothing", playfile.TotalFrames, 8
On Error Resume Next
playfile.PasteInfo 1, CreateObject("qrtVistrelClasses4.SettingsInfoClass")
CheckError "another object is no clipboard", 13
playfile.PasteInfo 1, "text"
CheckError "nor is a text", 13
Set other = CreateObject("qrtVistrelClasses4.SettingsInfoClass")
playfile.CopyInfo 1, 2, other
CheckError "nor may a variable for one hold another object", 13
On Error GoTo 0

playfile.CutInfo 1, 5, clip
CheckEqual "cut frames leave", Names(playfile) & Names(clip), "[A][B][F][A][B][C][D][E]"
Set other = playfile
playfile.CopyInfo 1, 3, playfile
CheckEqual "a playfile may be replaced by its own clipboard", Names(playfile) & Names(other), "[A][B][F][A][B][F]"

Set playfile = NewPlayfile("AB")
playfile.CurrentFrame = 1
playfile.InsertFrame
playfile.InsertFrame False
CheckEqual "frames are inserted at the cursor", Names(playfile), "[][][A][B]"
isLast = False
playfile.CurrentFrame = 4
playfile.InsertFrame isLast
CheckEqual "inserting before the last frame is told to the variable", isLast, True
playfile.CurrentFrame = 5
playfile.InsertFrame isLast
CheckEqual "a frame is added behind the last", playfile.CurrentFrame & Names(playfile), "6[][][A][][B][]"
playfile.CurrentFrame = 4
playfile.DeleteCurrentFrame
CheckEqual "a frame is deleted", playfile.CurrentFrame & Names(playfile), "3[][][A][B][]"

Set playfile = NewPlayfile("ABCDEF")
CheckEqual "frames are counted by kind", playfile.HowManyUsedFramesAreThere & playfile.HowManyGraphicsAreThere & _
    playfile.HowManyTextFramesAreThere & playfile.HowManyGraphicTextFramesAreThere & _
    playfile.HowManyCommandFileFramesAreThere, "42200"
CheckEqual "the delays are rounded frame by frame", playfile.WhatsTheTotalOfAllDelaysForThisFile, 8
playfile.CurrentFrame = 1
playfile.PicturefileName = "sun.bmp"
playfile.CurrentFrame = 3
playfile.PicturefileName = "sun.bmp"
CheckEqual "a picture shown before makes a clone", playfile.IsThereAPreviousClone(3), True
CheckEqual "a first one does not", playfile.IsThereAPreviousClone(1), False
CheckEqual "the playfile is exported", playfile.WriteXMLToDisk(folder & "export"), True
CheckEqual "beside its name", playfile.CurrentFileName, folder & "export"
Check "with the ending added", CreateObject("Scripting.FileSystemObject").FileExists(folder & "export.xml")
Finish
