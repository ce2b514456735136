Namespace Shapes

    ''' <summary>
    ''' A square.
    ''' </summary>
    Public Class Square

        ''' <summary>The side.</summary>
        Public Side As Double

        ''' <summary>The area.</summary>
        ''' <returns></returns>
        Public Function Area() As Double ' expect: Missing <returns> tag [member Area]
            Return Side * Side
        End Function

        ''' <summary>No returns tag on a Function.</summary>
        Public Function Perimeter() As Double ' expect: Missing <returns> tag
            Return 4 * Side
        End Function

        ''' <summary>A Sub returns nothing.</summary>
        Public Sub Clear()
        End Sub

        ''' <summary>Scales.</summary>
        ''' <param name="factor" type="Double">How much.</param>
        Public Sub Scale(ByVal factor As Double)
            Side *= factor
        End Sub

        ''' <summary>Renames.</summary>
        ''' <param name="name" type="string">The name.</param>
        Public Sub Rename(ByVal name As String, Optional ByVal force As Boolean = False) ' expect: Less parameters in XML comment than in definition. [member Rename]
        End Sub

        ''' <summary>Types as Visual Basic spells them.</summary>
        ''' <param name="lines" type="Integer()">Lines.</param>
        ''' <param name="name" type="String">The name.</param>
        Public Sub Draw(ByVal lines() As Integer, name As String)
        End Sub

        ''' <summary>The type in C# spelling does not match.</summary>
        ''' <param name="name" type="string">The name.</param>
        ' expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member Retitle:name]
        Public Sub Retitle(ByVal name As String)
        End Sub

        ''' <summary>Swapped.</summary>
        ''' <param name="b" type="Integer">B.</param>
        ''' <param name="a" type="Integer">A.</param>
        ' expect: Parameter with different name in XML comment vs. definition. [member Swap:a]
        ' expect: Parameter with different name in XML comment vs. definition. [member Swap:b]
        Public Sub Swap(a As Integer, b As Integer)
        End Sub

        ''' <summary>A parameterised property.</summary>
        Public ReadOnly Property Cell(ByVal index As Integer) As Double ' expect: Missing <param> tag [type Property]
            Get
                Return Side
            End Get
        End Property

    End Class

    ''' <summary>Delegates are checked.</summary>
    Public Delegate Function Measure(ByVal s As Square) As Double ' expect: Missing <param> tag ' expect: Missing <returns> tag

End Namespace
