Partial Class Form1
    Private Sub InitializeComponent()
    End Sub
End Class
