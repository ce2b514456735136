Namespace Docs
    ''' <summary>
    '''   Indented text keeps all but one blank.
    ''' </summary>
    '''<remarks>No blank after the marker.</remarks>
    ''' Trailing blanks stay.   
    Public Class Documented

        ''' First block.

        ' A plain comment between is no documentation.
        '''' Four marks make a plain comment.
        ''' Second block.
        Public Sub Separated()
        End Sub

        ''' Belongs to the field, not to the attribute.
        <NonSerialized>
        ''' Between the attribute and the declaration: nobody's.
        Private cache As Object

        Public Sub Owner() ''' on the previous token's own line
        End Sub
        Public Sub AfterTrailing()
        End Sub

        ''' For both declarators.
        Private first, second As Integer

        Public Sub Undocumented()
        End Sub

#Region "Region"
        ''' Across a region line.
#End Region
        Public Sub AcrossRegion()
        End Sub

        ''' Before an inactive branch.
#If NEVER Then
        ''' In an inactive branch: not taken.
#End If
        Public Sub AcrossInactive()
        End Sub

        ''' <param name="value">The value.</param>
        ''' <returns>Twice the value.</returns>
        Public Function Twice(value As Integer) As Integer
            ''' Inside a body: nobody's.
            Return value * 2
        End Function
    ''' Before End Class: nobody's.
    End Class
End Namespace
