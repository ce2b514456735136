Namespace Recovery
    Public Class MissingEnds
        Public Sub NoEnd()
            Dim local = 1
        Public Sub Next1()
        End Sub

        Public Property NoEndProperty As Integer
            Get
                Return 1
            End Get
        Private afterProperty As Integer

        Sub LambdaNeverEnds()
            Items.ForEach(Sub(x)
        End Sub
        Public Sub AfterLambda()
        End Sub

        Public Sub Garbage()
            ) ( } { < > : , = End
        End Sub
        This is not VB at all
        Public Sub StillRead()
        End Sub
        End Sub
        End Function
        Public Shared Function get(ByVal c As Type) As Object
        End Function
    Public Class NestedInMissingEnds
        Public Sub InNoEnd()
        End Sub
    End Class
    Public Enum NoEndEnum
        A
        B
    Public Class AfterEnum
    End Class
    Class Unclosed
        Sub Last()
