' Errors of untraced members reach the script; traced members trap theirs and give their failure value.
Dim playfile, value
Set playfile = CreateObject("qrtVistrelClasses4.FrameInfoClass")
On Error Resume Next

playfile.CurrentFrame = 0
value = "unchanged"
value = playfile.AudioFile
CheckEqual "the error is described", Err.Description, "Subscript out of range"
CheckEqual "the error tells its source", Err.Source, "qrtVistrelClasses4"
CheckError "reading an untraced member outside the frames is error 9", 9
CheckEqual "the variable keeps its value", value, "unchanged"
playfile.OverlayFrame = True
CheckError "setting an untraced member outside the frames is error 9", 9
value = playfile.FrameName
CheckEqual "a traced member gives its failure value", value, ""
playfile.FrameName = "nowhere"
CheckError "and makes no error, nor does setting it", 0

playfile.CurrentFrame = 1
playfile.FixedNumberOfLines = 40000
value = playfile.FixedNumberOfLines
CheckError "a stored number beyond 16 bits is error 6 when read", 6
playfile.CurrentFrame = 70000
CheckError "a number beyond 16 bits is error 6", 6
playfile.CurrentFrame = "one"
CheckError "a text that is no number is error 13", 13
playfile.NoSuchMember = 1
CheckError "a member that does not exist is error 438", 438
CheckEqual "what failed changed nothing", playfile.CurrentFrame, 1
Finish
