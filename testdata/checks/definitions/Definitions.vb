''' <summary>
''' Tools.
''' </summary>
Public Module Tools

    Public Function Twice(ByVal value As Integer) As Integer ' expect: Code elements without definition comments. [type Method]
        Return value * 2
    End Function

    ' Plain comment on a public function.
    Public Function Thrice(value As Integer) As Integer ' expect: Code elements without XML comments. [type Method]
        Return value * 3
    End Function

    ''' <summary>Delegates are checked.</summary>
    Public Delegate Sub Callback(ByVal code As Integer) ' expect: Missing <param> tag [type Delegate]

    ''' <summary>An event.</summary>
    Public Event Changed As EventHandler

    ' A private helper with a plain comment.
    Private Sub Helper()
    End Sub

End Module

Module Undocumented ' expect: Code elements without definition comments. [type Module]
End Module

Namespace Shapes

    ''' <summary>
    ''' A square.
    ''' </summary>
    Public Class Square

        ' The side length.
        <Obsolete("old")>
        Public Side As Double ' expect: Code elements without XML comments. [type Field (variable, constant)]

        Private m_name As String ' expect: Code elements without definition comments. [type Field (variable, constant)]

        ' A public constructor with a plain comment.
        Public Sub New() ' expect: Code elements without XML comments. [type Method]
        End Sub

        ''' <summary>A property.</summary>
        Public Property Size As Integer

        Public Property Bare As Integer ' expect: Code elements without definition comments. [type Property]

        ''' <summary></summary>
        Public Structure Corner ' expect: Missing <summary> tag [type Structure]
            Public X As Integer ' expect: Code elements without definition comments.
        End Structure

        ''' <summary>An enum: its members are not checked.</summary>
        Public Enum Mode
            Filled
            Outline
        End Enum

        Public Interface IScalable ' expect: Code elements without definition comments. [type Interface]
            Sub Scale(ByVal factor As Double) ' expect: Code elements without definition comments. [type Method]
        End Interface

    End Class

End Namespace
