''' <summary>
''' The sample's window.
''' </summary>
Public Class Form1

    ''' <summary>
    ''' Shows a greeting when the window opens.
    ''' </summary>
    ''' <param name="sender" type="Object">The window.</param>
    ''' <param name="e" type="EventArgs">Nothing of interest.</param>
    Private Sub Form1_Load(ByVal sender As Object, ByVal e As EventArgs) Handles MyBase.Load
        Me.Text = "Hello"
    End Sub

End Class
