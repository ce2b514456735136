' options: --non-public-xml --no-body
''' <summary>Non-public definitions need XML comments too.</summary>
Public Module Tools

    ' A private helper with a plain comment.
    Private Sub Helper() ' expect: Code elements without XML comments.
    End Sub

    Private Sub Bare() ' expect: Code elements without definition comments.
    End Sub

    ''' <summary>Documented.</summary>
    Private Sub Documented()
    End Sub

    ' A plain comment, and public.
    Public Sub Shown() ' expect: Code elements without XML comments.
    End Sub

End Module

' A module is never public: a plain comment does not do now.
Module Plain ' expect: Code elements without XML comments.
End Module
