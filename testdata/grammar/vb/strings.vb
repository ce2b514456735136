Public Function Run(a As Integer) As String ' header comment
    Dim s = "it's ""quoted"" ' not a comment"
    Dim t = $"{a} ' {Name("'x")} {{'}}" ' interpolated
    Dim x = obj.Rem + [Rem] ' members
    REM a rem comment
    Dim Premium = 1 'tail
    Dim m = "multi
line ' still string" ' after
    Return s ‘ typographic
End Function
