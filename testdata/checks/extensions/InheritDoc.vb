' options: --inheritdoc --no-body
''' <summary>Inherits its members' documentation.</summary>
Public Class Square

    ''' <inheritdoc/>
    Public Function Area(ByVal scale As Double) As Double
        Return scale
    End Function

    ''' <summary>Checked as always.</summary>
    Public Function Sides(ByVal n As Integer) As Integer ' expect: Missing <param> tag ' expect: Missing <returns> tag
        Return n
    End Function

End Class
