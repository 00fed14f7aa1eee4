' Scripts use each class through variables, literals and nothing at all. A check that fails does not end the script.
Dim failed, folder, frames, other, clip, first, last, unset, isLast, settings, signs, fileName, number, commands, recent, key
failed = 0
folder = WScript.Arguments(0) ' for files of the script, ending in a separator

Sub CheckEqual(sentence, actual, wanted)
    If actual = wanted Then
        WScript.Echo "ok " & sentence
    Else
        failed = failed + 1
        WScript.Echo "FAILED " & sentence & ": is [" & actual & "], should be [" & wanted & "]"
    End If
End Sub

' For use after On Error Resume Next; forgets the error.
Sub CheckError(sentence, wanted)
    CheckEqual sentence, Err.Number, wanted
    Err.Clear
End Sub

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
        NewPlayfile.FrameType = i Mod 3
        NewPlayfile.DelayTime = 1.5
    Next
End Function

Function Names(ofPlayfile)
    Dim i
    For i = 1 To ofPlayfile.TotalFrames
        ofPlayfile.CurrentFrame = i
        Names = Names & "[" & ofPlayfile.FrameName & "]"
    Next
End Function

' Playfiles and their files.
Set frames = NewPlayfile("AB")
Set other = Create("FrameInfoClass")
fileName = folder & "script.plw"
frames.CurrentFrame = unset
CheckEqual "a variable without a value counts as 0", frames.CurrentFrame, 0
last = "2"
frames.CurrentFrame = last
CheckEqual "a variable with a text is converted, and stays a text", frames.CurrentFrame & VarType(last), "28"
frames.FrameName = 2.5
frames.FastScroll = True
frames.WinBackColor = 100000
frames.PrefixCode = 9999
frames.CurrentLineText = "HELLO ""WORLD"""
frames.SendCommandFileAsIs = True
frames.SetSuppressMessages = True
CheckEqual "a function takes a literal", frames.ConvertPrefixCodeToString(20005), "Start Loop [5] times"
CheckEqual "a playfile is saved and read", frames.WritePlayfileToDisk(fileName) & other.GetPlayfileFromDisk(fileName), "TrueTrue"
other.CurrentFrame = 2
CheckEqual "texts, numbers and flags come back", other.FrameName & other.DelayTime & other.FastScroll & other.WinBackColor & _
    other.SuffixCode & other.CurrentLineText & other.SendCommandFileAsIs, "2.51.5True1000009999HELLO ""WORLD""1"
CheckEqual "a file that is not there is not read", other.GetPlayfileFromDisk(folder & "missing.plw"), False
other.SetSuppressMessages True
CheckEqual "an older playfile is opened", other.GetPlayfileFromDisk(folder & "lobby.PL2") & other.IsLegacy, "TrueTrue"
other.CurrentFrame = 3
other.CurrentLineNumber = 2
CheckEqual "with the codes and effects of now", other.CurrentLineText & other.SuffixCode, "VBL007 left20001"

' Errors of untraced members reach the script; traced members trap theirs and give their failure value.
On Error Resume Next
frames.CurrentFrame = 0
number = "unchanged"
number = frames.AudioFile
CheckEqual "an error is described", Err.Description & " by " & Err.Source, "Subscript out of range by qrtVistrelClasses4"
CheckError "reading an untraced member outside the frames is error 9", 9
CheckEqual "the variable keeps its value", number, "unchanged"
frames.OverlayFrame = True
CheckError "setting one, too", 9
frames.FrameName = "nowhere"
CheckEqual "a traced member gives its failure value", frames.FrameName, ""
CheckError "and makes no error", 0
frames.CurrentFrame = 1
frames.CurrentFrame = 70000
CheckError "a number beyond 16 bits is error 6", 6
frames.CurrentFrame = "one"
CheckError "a text that is no number is error 13", 13
frames.NoSuchMember = 1
CheckError "a member that does not exist is error 438", 438
CheckEqual "what failed changed nothing", frames.CurrentFrame, 1
frames.PasteInfo 1, Create("SettingsInfoClass")
CheckError "another object is no clipboard", 13
Set clip = Create("SettingsInfoClass")
frames.CopyInfo 1, 2, clip
CheckError "nor may a variable for one hold another object", 13
On Error GoTo 0

' Editing.
Set frames = NewPlayfile("ABCDEF")
CheckEqual "frames are counted by kind", frames.HowManyUsedFramesAreThere & frames.HowManyGraphicsAreThere & _
    frames.HowManyTextFramesAreThere & frames.HowManyGraphicTextFramesAreThere & frames.HowManyCommandFileFramesAreThere, "42200"
CheckEqual "their delays are added", frames.WhatsTheTotalOfAllDelaysForThisFile, 8
first = "2" : last = 5.4
frames.MoveFrame first, last
CheckEqual "a frame moves", Names(frames), "[A][C][D][E][B][F]"
CheckEqual "variables that are not changed stay what they were", VarType(first) & VarType(last), "85"
frames.MoveFrame 5, 2
first = 5 : last = 3 : Set clip = Nothing
frames.CopyInfo first, last, clip
CheckEqual "copying orders the variables and makes a clipboard", first & last & Names(clip), "35[C][D][E]"
frames.CopyInfo 6, 7, unset
CheckEqual "a range outside makes one of empty frames, also in a fresh variable", unset.TotalFrames, 20
frames.PasteInfo 6, clip
frames.PasteInfo 1, Nothing
CheckEqual "it is pasted before a frame", Names(frames), "[A][B][C][D][E][C][D][E][F]"
frames.CutInfo 1, 5, clip
CheckEqual "cut frames leave", Names(frames) & Names(clip), "[C][D][E][F][A][B][C][D][E]"
isLast = False
frames.CurrentFrame = 4
frames.InsertFrame isLast
CheckEqual "inserting before the last frame is told to the variable", isLast & Names(frames), "True[C][D][E][][F]"
frames.CurrentFrame = 4
frames.InsertFrame
frames.DeleteCurrentFrame
CheckEqual "a frame is deleted", frames.CurrentFrame & Names(frames), "3[C][D][E][][F]"
CheckEqual "no picture was shown before", frames.IsThereAPreviousClone(3), False
CheckEqual "the playfile is exported", frames.WriteXMLToDisk(folder & "export"), True
CheckEqual "under its name", CreateObject("Scripting.FileSystemObject").FileExists(frames.CurrentFileName & ".xml"), True

' Preferences.
Set settings = Create("SettingsInfoClass")
number = settings.ClassDebugID
Set settings = Create("SettingsInfoClass")
CheckEqual "the next object has the next number, of 32 bits", settings.ClassDebugID - number & VarType(number), "13"
settings.WriteSetting "ScriptKey", "kept"
CheckEqual "a written key is found", settings.GetPrivateSetting("ScriptKey", "none"), "kept"
settings.DelayStep = 12.5
settings.ScheduleNumber = 4
settings.BrightnessScheduleBrightnessLevel = 2
settings.SaveSettingsToDisk
Set settings = Create("SettingsInfoClass")
settings.GetSettingsFromDisk
settings.ScheduleNumber = 4
CheckEqual "preferences come back", settings.DelayStep & settings.BrightnessScheduleBrightnessLevel, "12.52"

' Signs.
Set signs = Create("DisplayDatabaseClass")
CheckEqual "a sign is added, but not twice", signs.AddNewDisplay("Harbour") & signs.AddNewDisplay("HARBOUR"), "1-1"
signs.CurrentDisplayNumber = 1
signs.DisplayType = 162
signs.ConnectionMethod = 2
signs.IPAddress = "10.0.0.5"
signs.AppDesc = "Rev 1.44"
CheckEqual "a type is a text", VarType(signs.DisplayType) & signs.DisplayType, "8162"
CheckEqual "with a description", signs.GetSignTypeDescription & signs.UseNew16x16, "ZR-7 - PhotoTriadTrue"
CheckEqual "a connection method has a name", signs.TranslateConnectionMethodToString(3), "Modem Connect"
number = signs.Duplicate("harbour", "Pier")
CheckEqual "a copy is told by a 32-bit number", VarType(number) & number, "32"
number = signs.Duplicate("nowhere", "Mole")
CheckEqual "no copy by a 16-bit one", VarType(number) & number, "2-1"
CheckEqual "removing tells nothing, but the others move up", signs.RemoveDisplay(1) & signs.FindDisplayByName("PIER"), "False1"
fileName = "Displays.dat"
signs.WriteAllDisplaysToDisk fileName
CheckEqual "the variable tells the full name", Right(fileName, 13) & (Len(fileName) > 13), "\Displays.datTrue"
Set signs = Create("DisplayDatabaseClass")
signs.RetrieveAllDisplayInfoFromDisk
CheckEqual "the signs are read, with the port that was missing", signs.TotalDisplays & signs.GetConnectionInfoInString, _
    "110.0.0.5:3001"

' The command table and the recent files.
Set commands = Create("clsCommandInterface")
CheckEqual "a row has a key and bytes", commands.sCommandKeyByNum(9) & Asc(commands.sCommandBytesByNum(9)), "##C3"
key = "key " & Chr(1) & Chr(126)
commands.sCommandBytesByKey(key) = "first"
CheckEqual "a new key gets the last row", commands.sCommandKeyByNum(commands.iTotalCommands), key
commands.sCommandBytesByNum(commands.iTotalCommands) = "second"
commands.SortCommandByLargestFirst
On Error Resume Next
commands.sCommandBytesByNum(32000) = "x"
CheckError "a row that is not there is error 9", 9
On Error GoTo 0
Set commands = Nothing
CheckEqual "the end of an object writes the table for the next", Create("clsCommandInterface").sCommandBytesByKey(key), "second"
Set recent = Create("MostRecentlyUsed")
recent.AddFileToMostRecentlyUsedList "C:\Signs\A.plw"
recent.AddFileToMostRecentlyUsedList "C:\Signs\B.plw"
CheckEqual "the newest file comes first", recent.GetFirstFileName & recent.GetNextFile, "C:\Signs\B.plwC:\Signs\A.plw"
CheckEqual "another object reads the same", Create("MostRecentlyUsed").GetFileName(2), "C:\Signs\A.plw"
recent.RemoveFileFromMostRecentlyUsed "C:\SIGNS\B.PLW"
recent.PurgeMRUList
CheckEqual "a removed file is gone, and a purged list is empty", Create("MostRecentlyUsed").GetFirstFileName & _
    recent.TotalFilesInList & (recent.ClassDebugID > 0), "C:\Signs\A.plw0True"
WScript.Echo "the script ran to its end"
