Class Parameters
    Sub Main
    End Sub
    Sub Empty()
    End Sub
    Sub Kinds(ByVal a As Integer, ByRef b As String, Optional c As Double = 1.5, ParamArray rest() As Object)
    End Sub
    Sub Shapes(bytes() As Byte, matrix(,) As Integer, jagged()() As Integer, maybe? As Integer, nullable As Integer?, arr As String())
    End Sub
    Sub NoAs(untyped, ByVal alsoUntyped)
    End Sub
    Sub TypeChars(s$, i%, l&, d#, f!, m@, names$())
    End Sub
    Sub Attributed(<Out()> ByRef result As Integer, <[In], MarshalAs(UnmanagedType.LPStr)> text As String)
    End Sub
    Sub Generic(Of T)(items As List(Of T), map As Dictionary(Of String, List(Of T)), ByVal tuple As (Integer, String))
    End Sub
    Sub Qualified(g As Global.System.Guid, x As System.Xml.Linq.XElement, Optional n As Integer = If(True, 1, 2))
    End Sub
    Sub Escaped([Date] As Date, [error] As String)
    End Sub
    Sub Spaced( ByVal   a   As   Dictionary ( Of   String ,   Integer ) )
    End Sub
    Function WithDefaults(Optional s As String = "a, b", Optional o As Object = Nothing) As String()
        Return Nothing
    End Function
End Class
