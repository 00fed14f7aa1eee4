' Scripts do the work of an application. A check that fails does not end the script.
Dim folder, frames, other, clip, first, last, unset, isLast, settings, signs, fileName, number, commands, recent, key
folder = WScript.Arguments(0) ' for files of the script, ending in a separator

Sub Check(sentence, actual, wanted)
    If actual = wanted Then
        WScript.Echo "ok " & sentence
    Else
        WScript.Echo "FAILED " & sentence & ": is [" & actual & "], should be [" & wanted & "]"
    End If
End Sub

' For use after On Error Resume Next; forgets the error.
Sub CheckError(sentence, wanted)
    Check sentence, Err.Number & " " & Err.Description, wanted
    Err.Clear
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
        NewPlayfile.FrameType = i Mod 5
        NewPlayfile.DelayTime = 1.5
    Next
End Function

Function Names(ofPlayfile)
    Dim i
    For i = 1 To ofPlayfile.TotalFrames
        ofPlayfile.CurrentFrame = i
        Names = Names & Left(ofPlayfile.FrameName & "-", 1)
    Next
End Function

' Playfiles and their files.
Set frames = NewPlayfile("AB")
Set other = Create("FrameInfoClass")
fileName = folder & "script.plw"
frames.CurrentFrame = unset
Check "a variable without a value counts as 0", frames.CurrentFrame, 0
frames.CurrentFrame = "2"
frames.FrameName = 2.5
frames.FastScroll = True
frames.WinBackColor = 100000
frames.CurrentLineText = "HELLO ""WORLD"""
frames.SendCommandFileAsIs = True
frames.SetSuppressMessages = True
Check "a playfile is saved and read", frames.WritePlayfileToDisk(fileName) & other.GetPlayfileFromDisk(fileName), "TrueTrue"
other.CurrentFrame = 2
Check "texts, numbers and flags come back", Words(Array(other.FrameName, other.DelayTime, other.FastScroll, _
    other.WinBackColor, other.CurrentLineText, other.SendCommandFileAsIs)), "2.5 1.5 True 100000 HELLO ""WORLD"" 1"
Check "a file that is not there is not read", other.GetPlayfileFromDisk(folder & "missing.plw"), False
other.SetSuppressMessages True
Check "an older playfile is opened", other.GetPlayfileFromDisk(folder & "lobby.PL2") & other.IsLegacy, "TrueTrue"
other.CurrentFrame = 3
other.CurrentLineNumber = 2
Check "with the codes and effects of now", other.CurrentLineText & other.SuffixCode, "VBL007 left20001"
Check "effects have names", Words(Array(other.ConvertPrefixCodeToString(20005), other.ConvertSuffixCodeToString(20001), _
    other.ConvertPrefixStringToCode("Reveal from Middle"), other.ConvertSuffixStringToCode("Reveal to Middle"))), _
    "Start Loop [5] times End Loop 5 10"

' Errors of untraced members reach the script; traced members trap theirs and give their failure value.
On Error Resume Next
frames.CurrentFrame = 0
number = "unchanged"
number = frames.AudioFile
CheckError "reading an untraced member outside the frames is an error", "9 Subscript out of range"
Check "the variable keeps its value", number, "unchanged"
frames.OverlayFrame = True
CheckError "setting one, too", "9 Subscript out of range"
frames.FrameName = "nowhere"
Check "a traced member gives its failure value, and makes no error", frames.FrameName & Err.Number, "0"
On Error GoTo 0

' Editing.
Set frames = NewPlayfile("ABCDEF")
Check "frames are counted by kind", Words(Array(frames.HowManyUsedFramesAreThere, frames.HowManyGraphicsAreThere, _
    frames.HowManyTextFramesAreThere, frames.HowManyGraphicTextFramesAreThere, frames.HowManyCommandFileFramesAreThere)), "5 2 1 1 1"
Check "their delays are added, each rounded", frames.WhatsTheTotalOfAllDelaysForThisFile, 10
first = "2" : last = 5.4
frames.MoveFrame first, last
Check "a frame moves, and variables that are not changed stay what they were", Names(frames) & VarType(first) & VarType(last), "ACDEBF85"
frames.MoveFrame 5, 2
first = 5 : last = 3 : Set clip = Nothing
frames.CopyInfo first, last, clip
Check "copying orders the variables and makes a clipboard", first & last & Names(clip), "35CDE"
frames.CopyInfo 6, 7, unset
Check "a range outside makes one of empty frames, also in a fresh variable", unset.TotalFrames, 20
frames.PasteInfo 6, clip
frames.PasteInfo 1, Nothing
Check "it is pasted before a frame", Names(frames), "ABCDECDEF"
frames.CutInfo 1, 5, clip
Check "cut frames leave", Names(frames) & " " & Names(clip), "CDEF ABCDE"
isLast = False
frames.CurrentFrame = 4
frames.InsertFrame isLast
Check "inserting before the last frame is told to the variable", isLast & Names(frames), "TrueCDE-F"
frames.CurrentFrame = 4
frames.InsertFrame
frames.DeleteCurrentFrame
Check "a frame is deleted", frames.CurrentFrame & Names(frames), "3CDE-F"
Check "no picture was shown before", frames.IsThereAPreviousClone(3), False
Check "the playfile is exported under its name", frames.WriteXMLToDisk(folder & "export") & _
    CreateObject("Scripting.FileSystemObject").FileExists(frames.CurrentFileName & ".xml"), "TrueTrue"

' Preferences.
Set settings = Create("SettingsInfoClass")
number = settings.ClassDebugID
Set settings = Create("SettingsInfoClass")
Check "the next object has the next number, of 32 bits", settings.ClassDebugID - number & VarType(number), "13"
settings.WriteSetting "ScriptKey", "kept"
Check "a written key is found", settings.GetPrivateSetting("ScriptKey", "none"), "kept"
settings.DelayStep = 12.5
settings.ScheduleNumber = 4
settings.BrightnessScheduleBrightnessLevel = 2
settings.SaveSettingsToDisk
Set settings = Create("SettingsInfoClass")
settings.GetSettingsFromDisk
settings.ScheduleNumber = 4
Check "preferences come back", settings.DelayStep & " " & settings.BrightnessScheduleBrightnessLevel, "12.5 2"

' Signs.
Set signs = Create("DisplayDatabaseClass")
Check "a sign is added, but not twice", signs.AddNewDisplay("Harbour") & signs.AddNewDisplay("HARBOUR"), "1-1"
signs.CurrentDisplayNumber = 1
signs.DisplayType = 162
signs.ConnectionMethod = 2
signs.IPAddress = "10.0.0.5"
signs.AppDesc = "Rev 1.44"
Check "a type is a text with a description", Words(Array(VarType(signs.DisplayType), signs.DisplayType, _
    signs.GetSignTypeDescription, signs.UseNew16x16)), "8 162 ZR-7 - PhotoTriad True"
Check "a connection method has a name", signs.TranslateConnectionMethodToString(3), "Modem Connect"
number = signs.Duplicate("harbour", "Pier")
Check "a copy is told by a 32-bit number", VarType(number) & number, "32"
number = signs.Duplicate("nowhere", "Mole")
Check "no copy by a 16-bit one", VarType(number) & number, "2-1"
Check "removing tells nothing, but the others move up", signs.RemoveDisplay(1) & signs.FindDisplayByName("PIER"), "False1"
fileName = "Displays.dat"
signs.WriteAllDisplaysToDisk fileName
Check "the variable tells the full name", Right(fileName, 13) & (Len(fileName) > 13), "\Displays.datTrue"
Set signs = Create("DisplayDatabaseClass")
signs.RetrieveAllDisplayInfoFromDisk
Check "the signs are read, with the port that was missing", signs.TotalDisplays & signs.GetConnectionInfoInString, "110.0.0.5:3001"

' The command table and the recent files.
Set commands = Create("clsCommandInterface")
Check "a row has a key and bytes", commands.sCommandKeyByNum(9) & Asc(commands.sCommandBytesByNum(9)), "##C3"
key = "key " & Chr(1) & Chr(126)
commands.sCommandBytesByKey(key) = "first"
Check "a new key gets the last row", commands.sCommandKeyByNum(commands.iTotalCommands), key
commands.sCommandBytesByNum(commands.iTotalCommands) = "second"
commands.SortCommandByLargestFirst
Set commands = Nothing
Check "the end of an object writes the table for the next", Create("clsCommandInterface").sCommandBytesByKey(key), "second"
Set recent = Create("MostRecentlyUsed")
recent.AddFileToMostRecentlyUsedList "C:\Signs\A.plw"
recent.AddFileToMostRecentlyUsedList "C:\Signs\B.plw"
Check "the newest file comes first, for every object", recent.GetFirstFileName & recent.GetNextFile & _
    Create("MostRecentlyUsed").GetFileName(2), "C:\Signs\B.plwC:\Signs\A.plwC:\Signs\A.plw"
recent.RemoveFileFromMostRecentlyUsed "C:\SIGNS\B.PLW"
recent.PurgeMRUList
Check "a removed file is gone, and a purged list is empty", Create("MostRecentlyUsed").GetFirstFileName & _
    recent.TotalFilesInList & (recent.ClassDebugID > 0), "C:\Signs\A.plw0True"
WScript.Echo "the script ran to its end"
