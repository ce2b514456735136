' options: --no-body
''' <summary>By default a param tag must give the type.</summary>
Public Class Parameters

    ''' <summary>No type given.</summary>
    ''' <param name="a">A.</param>
    Public Sub NoType(ByVal a As Integer) ' expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member NoType:a]
    End Sub

    ''' <summary>Types written as XML writes them.</summary>
    ''' <param name="items" type="List(Of Integer)">Items.</param>
    ''' <param name="map" type="Dictionary(Of String, List(Of Integer))">Map.</param>
    Public Sub Generic(ByVal items As List(Of Integer), ByVal map As Dictionary(Of String, List(Of Integer)))
    End Sub

End Class
