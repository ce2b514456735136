''' <summary>
''' Tools.
''' </summary>
Public Module Tools

    Public Function Twice(ByVal value As Integer) As Integer
        Return value * 2
    End Function

    ' Plain comment on a public function.
    Public Function Thrice(value As Integer) As Integer
        Return value * 3
    End Function

    ''' <summary>Delegates are checked.</summary>
    Public Delegate Sub Callback(ByVal code As Integer)

    ''' <summary>An event.</summary>
    Public Event Changed As EventHandler

    ' A private helper with a plain comment.
    Private Sub Helper()
    End Sub

    ''' <summary>Five code lines above a comment.</summary>
    Public Sub FiveLines()
        Dim a As Integer = 1
        a += 1
        a += 1
        a += 1
        a += 1
        ' a comment
    End Sub

    ''' <summary>Six code lines above a comment.</summary>
    Public Sub SixLines()
        Dim a As Integer = 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        ' a comment
    End Sub

End Module

Module Undocumented
End Module
