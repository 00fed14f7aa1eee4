' A playfile is filled, saved, and read back by another object.
Dim written, read, fileName
fileName = folder & "script.plw"

Set written = CreateObject("qrtVistrelClasses4.FrameInfoClass")
CheckEqual "a new playfile has 20 frames", written.TotalFrames, 20
CheckEqual "a new playfile has no identity number", written.ClassDebugID, 0

' Nobody is there to answer whether the picture is to be copied.
written.SetSuppressMessages True
written.TotalFrames = 2
written.CurrentFrame = 1
written.FrameName = "Welcome"
written.FrameType = 2
written.PrefixCode = 5000
written.SuffixCode = 1000
written.DelayTime = 2.5
written.FastScroll = True
written.TotalLinesAllowed = 2
written.CurrentLineNumber = 1
written.CurrentLineText = "HELLO ""WORLD"""
written.Scrolling = True
written.CurrentLineNumber = 2
written.CurrentLineText = "second line"
written.LineFontSize = 7

written.CurrentFrame = 2
written.FrameName = "Goodbye"
written.FrameType = 1
written.PicturefileName = "picture.bmp"
written.PrefixCode = 9999
written.WinBackColor = 255
written.SendCommandFileAsIs = True

CheckEqual "the playfile is saved", written.WritePlayfileToDisk(fileName), True
CheckEqual "the saved playfile remembers its name", written.CurrentFileName, fileName

Set read = CreateObject("qrtVistrelClasses4.FrameInfoClass")
CheckEqual "the playfile is read", read.GetPlayfileFromDisk(fileName), True
CheckEqual "it has two frames", read.TotalFrames, 2

read.CurrentFrame = 1
CheckEqual "the name comes back", read.FrameName, "Welcome"
CheckEqual "the kind comes back", read.FrameType, 2
CheckEqual "the appear effect comes back", read.ConvertPrefixCodeToString(read.PrefixCode), "Scroll Right to Left"
CheckEqual "the disappear effect comes back", read.ConvertSuffixCodeToString(read.SuffixCode), "Jump Off"
CheckEqual "the delay comes back", read.DelayTime, 2.5
CheckEqual "fast scrolling comes back", read.FastScroll, True
CheckEqual "the lines come back", read.TotalLinesAllowed, 2
read.CurrentLineNumber = 1
CheckEqual "a text with quotes comes back", read.CurrentLineText, "HELLO ""WORLD"""
CheckEqual "scrolling comes back", read.Scrolling, True
read.CurrentLineNumber = 2
CheckEqual "the second line comes back", read.CurrentLineText, "second line"
CheckEqual "its font comes back", read.CurrentLineFont, 7

read.CurrentFrame = 2
CheckEqual "the second frame comes back", read.FrameName, "Goodbye"
CheckEqual "effect 9999 is held by both codes", read.SuffixCode, 9999
CheckEqual "the background comes back", read.WinBackColor, 255
CheckEqual "a flag reads as the number stored", read.SendCommandFileAsIs, 1

CheckEqual "a file that is not there is not read", read.GetPlayfileFromDisk(folder & "missing.plw"), False
Finish
