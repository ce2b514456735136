''' <summary>The in-method check in Visual Basic.</summary>
Public Class Shapes

    ''' <summary>Draws.</summary>
    ''' <param name="lines" type="Integer()">Lines.</param>
    Public Sub Draw(ByVal lines() As Integer) ' expect: Too large uncommented code block [end +25]
        Dim total As Integer = 0
        Dim text As String = "' not a comment"
        total = total + _
            1
        total = total + _
            2
        total = total + _
            3
        total = total + _
            4
        total = total + _
            5
        total = total + _
            6
        total = total + 7
        Dim f = Function(x As Integer)
                    Return x * 2
                End Function
        total = f(total)
        text = text & "done"
        total += 1
        total += 1
        total += 1
        total += 1
    End Sub

    ''' <summary>Twenty lines, but their continued lines count once: 10 code lines.</summary>
    Public Sub Continued()
        Dim total As Integer = 0
        total = total + _
            1
        total = total + _
            2
        total = total + _
            3
        total = total + _
            4
        total = total + _
            5
        total = total + _
            6
        total = total + _
            7
        total = total + _
            8
        total = total + _
            9
        Return
    End Sub

    ''' <summary>A comment in the middle leaves two short stretches.</summary>
    Public Sub Halves()
        Dim a As Integer = 0
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        ' the middle
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
    End Sub

    ' Private, plain comment: the body is checked all the same.
    Private Sub Hidden() ' expect: Too large uncommented code block [end +17]
        Dim a As Integer = 0
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
    End Sub

    Private Sub InitializeComponent() ' expect: Code elements without definition comments.
        Dim a As Integer = 0
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
        a += 1
    End Sub

End Class
