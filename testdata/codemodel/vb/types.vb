Namespace Company.Product
    ''' <summary>A module with nested types.</summary>
    Module Helpers
        Class NestedInModule
        End Class
        Private Class PrivateNested
        End Class
        Delegate Function Transform(value As String) As String
    End Module

    Partial Public MustInherit Class Base(Of T As {Class, New})
        Inherits Object
        Implements IDisposable
        Protected Friend Class Inner
            Dim innerField As Integer
        End Class
        Private Protected Interface IHidden
        End Interface
        Friend Enum Kind
            None
        End Enum
        Protected Structure Pair
            Dim Left As Integer
            Private Right As Integer
            Class InStruct
                Dim notPublic As Integer
            End Class
        End Structure
    End Class

    Public Interface IShape
        Inherits IComparable
        ReadOnly Property Area As Double
        Function Scale(factor As Double) As IShape
        Sub Reset()
        Event Changed As EventHandler
        Class NestedInInterface
        End Class
    End Interface

    Public Enum Color As Byte
        ''' <summary>Red.</summary>
        Red = 1
        <Obsolete> Green
        [Error]
    End Enum

    Namespace Inner.Deeper
        Friend NotInheritable Class [Class]
        End Class
    End Namespace
End Namespace

Namespace Global.Rooted
    Class R
    End Class
End Namespace
