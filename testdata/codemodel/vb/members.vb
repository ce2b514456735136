Imports System.Runtime.InteropServices

Public MustInherit Class Members
    Private x, y As Integer
    Dim a As Integer = 1, b As String
    Public Shared ReadOnly Instance As New Members2(1, 2)
    Friend WithEvents OkButton As System.Windows.Forms.Button
    Private WithEvents timer As Timer
    Const Count = 10, Big = 3000000000, Ratio = 1.5, Letter = "c"c
    Private Const Title = "A" & "B", Flag = True, Nobody = Nothing, Mask = &HFF, Half = 0.5F, Day = #1/1/2000#
    Protected Const Typed As Long = 5
    Private grid(10, 20) As Double, list() As String, maybe? As Integer, name$
    Private items As New List(Of String)()

    Public Sub new()
    End Sub
    Shared Sub New()
    End Sub
    Protected Overridable Function Compute$(ByVal value%)
        Return ""
    End Function
    Function NoAs()
        Return Nothing
    End Function
    Public Function Generic(Of TKey, TValue)(key As TKey) As Dictionary(Of TKey, TValue)
        Return Nothing
    End Function
    Private Sub OnClick(sender As Object, e As EventArgs) Handles OkButton.Click, timer.Tick
    End Sub
    Public Function Area() As Double Implements IShape.Area
        Return 0
    End Function
    Public MustOverride Sub Abstract()
    Public MustOverride Function AbstractFunction() As Integer
    Partial Private Sub OnCreated()
    End Sub

    Public Shared Operator +(left As Members, right As Members) As Members
        Return left
    End Operator
    Public Shared Operator =(left As Members, right As Members) As Boolean
        Return True
    End Operator
    Public Shared Operator <>(left As Members, right As Members) As Boolean
        Return False
    End Operator
    Public Shared Operator Not(value As Members) As Members
        Return value
    End Operator
    Public Shared Operator IsTrue(value As Members) As Boolean
        Return True
    End Operator
    Public Shared Widening Operator CType(value As Members) As String
        Return ""
    End Operator
    Public Shared Narrowing Operator CType(value As String) As Members
        Return Nothing
    End Operator

    Public Property Auto As Integer
    Public Property WithValue As String = "x"
    Public Property Created As New List(Of Integer)
    Property NoType
    Public Property Name() As String
        Get
            Return ""
        End Get
        Set(ByVal value As String)
        End Set
    End Property
    Public ReadOnly Property Length As Integer
        Get
            Return 0
        End Get
    End Property
    Public WriteOnly Property Sink As String
        Set(value As String)
        End Set
    End Property
    Default Public Property Item(index As Integer, Optional key As String = "") As Object
        Get
            Return Nothing
        End Get
        Protected Set(value As Object)
        End Set
    End Property
    Public ReadOnly Property AutoReadOnly As Integer = 3
    Public MustOverride Property AbstractProperty As Integer
    Public Iterator ReadOnly Property Values As IEnumerable(Of Integer)
        Get
            Yield 1
        End Get
    End Property

    Public Event Changed(sender As Object, e As EventArgs)
    Public Event Plain()
    Public Event Typed2 As EventHandler
    Public Event Implemented As EventHandler Implements INotify.Changed
    Public Custom Event Routed As EventHandler
        AddHandler(ByVal value As EventHandler)
        End AddHandler
        RemoveHandler(ByVal value As EventHandler)
        End RemoveHandler
        RaiseEvent(ByVal sender As Object, ByVal e As EventArgs)
        End RaiseEvent
    End Event

    Private Declare Function GetTickCount Lib "kernel32" () As Integer
    Declare Auto Sub Sleep Lib "kernel32" (ByVal ms As Integer)
    Public Declare Ansi Function Beep Lib "kernel32" Alias "Beep" (ByVal freq As Integer, ByVal duration As Integer) As Boolean
    Declare Function NoParens Lib "x"
End Class
