''' <summary>The form.</summary>
Public Class Form1
End Class
