Public Class Lines
    Private text As String = "It's a ' quote, not a comment"
    Private quoted As String = "He said ""REM"" ' and left"
    Private typographic As String = “curly ' quotes”
    REM A remark comment
    Private afterRem As Integer ' trailing
    ‘ A typographic comment
    Private afterTypographic As Integer

    Public Function Spread(ByVal first As Integer, _
                           ByVal second As Integer) _
                           As Integer
        Return first + second
    End Function

    Public Function Implicit(first As Integer,
                             second As String
                            ) As Dictionary(Of String,
                                                Integer)
        Return Nothing
    End Function

    <Obsolete("Use another")>
    <CLSCompliant(False)>
    Public Sub OnItsOwnLines()
    End Sub

    <Obsolete("Old style")> _
    Public Sub ContinuedAttribute()
    End Sub

    <Obsolete()> Public Sub SameLine()
    End Sub

    Private Sub OneLine() : End Sub : Private Sub Second() : End Sub

    Public Property Multi As Integer _
        = 5
    Private field1 As Integer : Private field2 As String
End Class
