' A playfile is filled, saved, and read back by another object.
Dim written, read, fileName
fileName = folder & "script.plw"
Set written = CreateObject("qrtVistrelClasses4.FrameInfoClass")
Set read = CreateObject("qrtVistrelClasses4.FrameInfoClass")
written.TotalFrames = 2
written.CurrentFrame = 1
written.FrameName = "Welcome"
written.DelayTime = 2.5
written.FastScroll = True
written.TotalLinesAllowed = 2
written.CurrentLineNumber = 2
written.CurrentLineText = "HELLO ""WORLD"""
written.LineFontSize = 7
written.CurrentFrame = 2
written.FrameType = 2
written.PrefixCode = 9999
written.WinBackColor = 255
written.SendCommandFileAsIs = True

CheckEqual "the playfile is saved", written.WritePlayfileToDisk(fileName), True
CheckEqual "the saved playfile remembers its name", written.CurrentFileName, fileName
CheckEqual "the playfile is read", read.GetPlayfileFromDisk(fileName), True
CheckEqual "it has two frames", read.TotalFrames, 2
read.CurrentFrame = 1
CheckEqual "the name comes back", read.FrameName, "Welcome"
CheckEqual "the delay comes back", read.DelayTime, 2.5
CheckEqual "fast scrolling comes back", read.FastScroll, True
read.CurrentLineNumber = 2
CheckEqual "a text with quotes comes back", read.CurrentLineText, "HELLO ""WORLD"""
CheckEqual "its font comes back", read.CurrentLineFont, 7
read.CurrentFrame = 2
CheckEqual "the kind comes back", read.FrameType, 2
CheckEqual "effect 9999 is held by both codes", read.SuffixCode, 9999
CheckEqual "the background comes back", read.WinBackColor, 255
CheckEqual "a flag reads as the number stored", read.SendCommandFileAsIs, 1
CheckEqual "a file that is not there is not read", read.GetPlayfileFromDisk(folder & "missing.plw"), False

read.SetSuppressMessages True
CheckEqual "an older playfile is opened", read.GetPlayfileFromDisk(folder & "lobby.PL2"), True
CheckEqual "it counts as one", read.IsLegacy, True
read.CurrentFrame = 3
read.CurrentLineNumber = 2
CheckEqual "its placeholders are the codes of now", read.CurrentLineText, "VBL007 left"
CheckEqual "its keywords are effects", read.SuffixCode, 20001
Finish
