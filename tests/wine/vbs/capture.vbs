' Screen captures as a script sees them. Wine's screen without a display
' is 1024 x 768 pixels at 96 pixels per inch (15 twips a pixel); picture
' sizes read back in HIMETRIC (68 pixels are 1799).
Dim p

Set p = fun.imgCaptureScreen()
Check "screen capture is a picture", TypeName(p), "Picture"
Check "a bitmap picture", p.Type, 1
' 1024 x 768 pixels taken as twips again: 68 x 51 pixels.
Check "screen capture width, a Long", p.Width, CLng(1799)
Check "screen capture height", p.Height, CLng(1349)
Check "no palette on a true-colour screen", p.hPal, CLng(0)
' Twips turned into pixels: 150 x 300 twips are 10 x 20 pixels.
Set p = fun.imgCaptureWindow(0, True, 0, 0, 150, 300)
Check "window capture width", p.Width, CLng(265)
Check "window capture height", p.Height, CLng(529)
Set p = fun.imgCreateBitmapPicture(0, 0)
Check "a picture of bitmap 0 has no bitmap", p.Handle, CLng(0)

Done "capture"
