Option Infer On
Imports System.Threading.Tasks

Namespace Modern
    ''' <summary>Current VB.</summary>
    Public Class Service
        Implements IDisposable

        Private ReadOnly _handler As Action(Of String) = Sub(message)
                                                              Dim notAField = message
                                                              Console.WriteLine(message)
                                                          End Sub
        Private ReadOnly _lookup As New Dictionary(Of String, Integer) From {
            {"one", 1},
            {"two", 2}
        }
        Private ReadOnly _numbers As Integer() = {1, 2, 3}
        Public Property Name As String = NameOf(Service)
        Public ReadOnly Property Pair As (Count As Integer, Label As String)

        Public Async Function LoadAsync(Optional token As CancellationToken = Nothing) As Task(Of Integer)
            Dim result = Await Task.Run(Function() 42)
            Dim text = $"Result: {result,5:N0} from {Name?.Length}"
            Dim query = From n In _numbers
                        Where n > 1
                        Order By n Descending
                        Select New With {Key .Value = n}
            Return result
        End Function

        Public Iterator Function Evens() As IEnumerable(Of Integer)
            For Each n In _numbers
                If n Mod 2 = 0 Then Yield n
            Next
        End Function

        Public Function Describe(value As Object) As String
            Select Case value
                Case Is Nothing
                    Return "nothing"
                Case TypeOf value Is String
            End Select
            Dim x = If(TryCast(value, String), "")
            Return x
        End Function

        Public Sub Dispose() Implements IDisposable.Dispose
        End Sub

        Private Shared Function Pick(Of T As {Class, New})(items As IEnumerable(Of T)) As T
            Return items.FirstOrDefault()
        End Function
    End Class

    Public Structure Point
        Public ReadOnly X As Integer
        Dim Y As Integer
        Public Sub New(x As Integer, y As Integer)
            Me.X = x : Me.Y = y
        End Sub
    End Structure
End Namespace
