' A script that works like an application. A check that fails does not end it.
Option Explicit
Dim folder, frames, other, clip, first, last, settings, signs, commands, recent, key, number, value, fileName, unset, report, old, clips(1)
folder = WScript.Arguments(0) ' for the script's files; ends in a separator

Sub Check(sentence, actual, wanted)
    If actual = wanted Then
        WScript.Echo "ok " & sentence
    Else
        WScript.Echo "FAILED " & sentence & ": is [" & actual & "], should be [" & wanted & "]"
    End If
End Sub

Function Words(values)
    Dim value
    For Each value In values
        Words = Trim(Words & " " & value)
    Next
End Function

Function Create(name)
    Set Create = CreateObject("qrtVistrelClasses4." & name)
End Function

Function NewPlayfile(letters)
    Dim i
    Set NewPlayfile = Create("FrameInfoClass")
    NewPlayfile.TotalFrames = Len(letters)
    For i = 1 To Len(letters)
        NewPlayfile.CurrentFrame = i
        NewPlayfile.FrameName = Mid(letters, i, 1)
    Next
End Function

Function Names(ofPlayfile)
    Dim i
    For i = 1 To ofPlayfile.TotalFrames
        ofPlayfile.CurrentFrame = i
        Names = Names & Left(ofPlayfile.FrameName & "-", 1)
    Next
End Function

' Playfiles.
Set frames = NewPlayfile("AB")
Set other = Create("FrameInfoClass")
fileName = folder & "script.plw"
frames.CurrentFrame = unset
Check "a variable without a value counts as 0", frames.CurrentFrame, 0
frames.CurrentFrame = "2"
frames.FrameName = 2.5
frames.DelayTime = 1.5
frames.WinBackColor = 100000
frames.SendCommandFileAsIs = True
frames.SetSuppressMessages = True
Check "a playfile is saved, read and exported", frames.WritePlayfileToDisk(fileName) & _
    other.GetPlayfileFromDisk(fileName) & frames.WriteXMLToDisk(folder & "export"), "TrueTrueTrue"
other.CurrentFrame = 2
Check "texts, numbers and flags come back", Words(Array(other.FrameName, other.DelayTime, _
    other.WinBackColor, other.SendCommandFileAsIs)), "2.5 1.5 100000 1"
other.SetSuppressMessages True
Check "an older playfile is opened", other.GetPlayfileFromDisk(folder & "lobby.PL2") & other.IsLegacy, "TrueTrue"
Check "effects have names", Words(Array(other.ConvertPrefixCodeToString(20005), other.ConvertSuffixCodeToString(20001), _
    other.ConvertPrefixStringToCode("Reveal from Middle"), other.ConvertSuffixStringToCode("Reveal to Middle"))), _
    "Start Loop [5] times End Loop 5 10"

' Errors of untraced members reach the script. Traced members trap theirs and return their failure value.
On Error Resume Next
frames.CurrentFrame = 0
value = frames.AudioFile
Check "reading an untraced member outside the frames is an error", Err.Number & " " & Err.Description, "9 Subscript out of range"
Err.Clear
frames.FrameName = "nowhere"
Check "a traced member returns its failure value without an error", frames.FrameName & Err.Number, "0"
On Error GoTo 0

' Editing.
Set frames = NewPlayfile("ABCDEF")
first = "2" : last = 5.4
frames.MoveFrame first, last
Check "a frame moves, and unchanged variables keep their types", Names(frames) & VarType(first) & VarType(last), "ACDEBF85"
first = 5 : last = 3
frames.CopyInfo first, last, clip
Check "copying orders the variables, and puts a clipboard into a fresh one", first & last & Names(clip), "35DEB"
frames.PasteInfo 1, Nothing
Check "nothing is pasted, and no picture was shown before", Names(frames) & frames.IsThereAPreviousClone(3), "ACDEBFFalse"

' Before a playfile is sent.
Set frames = NewPlayfile("AB")
value = 7
Check "findings put a line into a variable, of any type before", frames.ValidateThisPlayfile(value) & value, _
    "Falseerror playfile: All 2 frames are blank. [no-used-frame]"
frames.CurrentFrame = 1
frames.FrameType = 2
frames.DelayTime = -1
value = frames.ValidateThisPlayfile(report)
Check "each has a line and its place", value & (InStr(report, vbCrLf & "error frame 1, DelayTime: The delay ") > 0), _
    "FalseTrue"
frames.DelayTime = 1.5
Check "warnings are no errors, and nobody need read them", frames.ValidateThisPlayfile & frames.ValidateThisPlayfile((report)), _
    "TrueTrue"

' Preferences.
number = Create("SettingsInfoClass").ClassDebugID
Set settings = Create("SettingsInfoClass")
Check "the next object has the next number, of 32 bits", settings.ClassDebugID - number & VarType(number), "13"
settings.DelayStep = 12.5
settings.SaveSettingsToDisk
Set settings = Create("SettingsInfoClass")
settings.GetSettingsFromDisk
Check "preferences come back", settings.DelayStep, 12.5

' Signs.
Set signs = Create("DisplayDatabaseClass")
Check "a sign is added, but not twice", signs.AddNewDisplay("Harbour") & signs.AddNewDisplay("HARBOUR"), "1-1"
signs.CurrentDisplayNumber = 1
signs.ConnectionMethod = 2
signs.IPAddress = "10.0.0.5"
Check "a connection method has a name", signs.TranslateConnectionMethodToString(3), "Modem Connect"
number = signs.Duplicate("harbour", "Pier")
Check "the number of a copy has 32 bits", VarType(number) & number, "32"
number = signs.Duplicate("nowhere", "Mole")
Check "the number for no copy has 16 bits", VarType(number) & number, "2-1"
Check "removing returns False, but the others move up", signs.RemoveDisplay(1) & signs.FindDisplayByName("PIER"), "False1"
signs.WriteAllDisplaysToDisk "Displays.dat"
Set signs = Create("DisplayDatabaseClass")
signs.RetrieveAllDisplayInfoFromDisk
Check "the signs are read, with the missing port", signs.TotalDisplays & signs.GetConnectionInfoInString, "110.0.0.5:3001"

' Commands.
Set commands = Create("clsCommandInterface")
Check "a row has a key and bytes", commands.sCommandKeyByNum(9) & Asc(commands.sCommandBytesByNum(9)), "##C3"
key = "key " & Chr(1) & Chr(126)
commands.sCommandBytesByKey(key) = "first"
Check "a new key gets the last row", commands.sCommandKeyByNum(commands.iTotalCommands), key
commands.sCommandBytesByNum(commands.iTotalCommands) = "second"
commands.SortCommandByLargestFirst
Set commands = Nothing
Check "the end of an object writes the table for the next", Create("clsCommandInterface").sCommandBytesByKey(key), "second"

' Recent files.
Set recent = Create("MostRecentlyUsed")
recent.AddFileToMostRecentlyUsedList "C:\Signs\A.plw"
recent.AddFileToMostRecentlyUsedList "C:\Signs\B.plw"
Check "the newest file comes first, for every object", recent.GetFirstFileName & recent.GetNextFile & _
    Create("MostRecentlyUsed").GetFileName(2), "C:\Signs\B.plwC:\Signs\A.plwC:\Signs\A.plw"
recent.RemoveFileFromMostRecentlyUsed "C:\SIGNS\B.PLW"
Check "a removed file is gone", Create("MostRecentlyUsed").GetFirstFileName, "C:\Signs\A.plw"

' A clipboard passed as a variable is replaced; one passed as a value is filled.
Set frames = Create("FrameInfoClass")
Set clip = Create("FrameInfoClass")
Set old = clip
frames.CopyInfo 1, 2, clip
Check "a variable gets a new object, and the old one stays", old.TotalFrames & " " & clip.TotalFrames, "20 2"
frames.CopyInfo 1, 3, (clip)
Check "an expression is an object to fill", clip.TotalFrames, 3
Set clips(1) = old
frames.CutInfo 1, 4, clips(1)
Check "an element is a variable", old.TotalFrames & " " & clips(1).TotalFrames & " " & frames.TotalFrames, "20 4 16"
frames.DisplayWidth = 8
frames.DisplayHeight = 8
Check "a picture is saved", frames.SavePictureOfFrame(1, folder & "frame.bmp"), True
WScript.Echo "the script ran to its end"
