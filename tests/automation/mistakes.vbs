' A script with mistakes. At each of its messages it waits for an operator, if there is one.
Set frames = CreateObject("qrtVistrelClasses4.FrameInfoClass")
frames.CurrentFrame = 21
frames.FrameName = "nowhere"
WScript.Echo frames.LastErrorNumber & " " & frames.LastErrorDescription
For Each quiet In Array(False, True)
    frames.SetSuppressMessages quiet
    WScript.Echo frames.WritePlayfileToDisk("no such folder\x.playfile") & " " & frames.LastErrorNumber
Next
frames.SetSuppressMessages False
WScript.Echo frames.GetPlayfileFromDisk("lobby.PL2") & "" ' which asks first
