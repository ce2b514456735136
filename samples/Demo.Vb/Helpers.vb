''' <summary>
''' Small helpers.
''' </summary>
Module Helpers

    ''' <summary>
    ''' Doubles a number.
    ''' </summary>
    ''' <param name="value" type="Integer">The number.</param>
    ''' <returns>Twice the number.</returns>
    Public Function Twice(ByVal value As Integer) As Integer
        Return value * 2
    End Function

    Public Enum Mode
        Fast
        Careful
    End Enum

End Module
