WScript.Echo CreateObject("Scripting.FileSystemObject").GetFileVersion(WScript.Arguments(0))
