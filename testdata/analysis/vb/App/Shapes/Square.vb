Namespace Shapes

    ''' <summary>
    ''' A square.
    ''' </summary>
    Public Class Square

        ' The side length.
        <Obsolete("old")>
        Public Side As Double

        Private m_name As String

        ''' <summary>The area.</summary>
        ''' <returns></returns>
        Public Function Area() As Double
            Return Side * Side
        End Function

        ''' <summary>Scales.</summary>
        ''' <param name="factor" type="Double">How much.</param>
        Public Sub Scale(ByVal factor As Double)
            Side *= factor
        End Sub

        ''' <summary>Renames.</summary>
        ''' <param name="name" type="string">The name.</param>
        Public Sub Rename(ByVal name As String, Optional ByVal force As Boolean = False)
        End Sub

        ''' <summary>Draws the square.</summary>
        ''' <param name="lines" type="Integer()">Lines.</param>
        Public Sub Draw(ByVal lines() As Integer)
            Dim total As Integer = 0
            Dim text As String = "' not a comment"
            total = total + _
                1
            total = total + _
                2
            total = total + _
                3
            total = total + _
                4
            total = total + _
                5
            total = total + _
                6
            total = total + 7
            Dim f = Function(x As Integer)
                        Return x * 2
                    End Function
            total = f(total)
            text = text & "done"
            total += 1
            total += 1
            total += 1
            total += 1
        End Sub

#If EXTRA Then
        ''' <summary>Only with EXTRA.</summary>
        Public Sub Extra()
        End Sub
#Else
        Public Sub NotExtra()
        End Sub
#End If

    End Class

End Namespace
