' options: --max-lines 5
''' <summary>Five code lines are still fine; six are not.</summary>
Public Module Tools

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
    Public Sub SixLines() ' expect: Too large uncommented code block [end +6]
        Dim a As Integer = 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        ' a comment
    End Sub

    ''' <summary>Six after a comment: the stretch starts on the comment's line.</summary>
    Public Sub AfterComment()
        Dim a As Integer = 1
        ' a comment ' expect: Too large uncommented code block [end +7]
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
    End Sub

End Module
