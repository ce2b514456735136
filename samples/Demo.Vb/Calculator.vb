Imports System.Collections.Generic

Namespace Arithmetic

    ''' <summary>
    ''' Adds and multiplies numbers.
    ''' </summary>
    Public Class Calculator

        ''' <summary>
        ''' Adds two numbers.
        ''' </summary>
        ''' <param name="a" type="Integer">The first number.</param>
        ''' <param name="b" type="Integer">The second number.</param>
        ''' <returns>The sum.</returns>
        Public Function Add(ByVal a As Integer, ByVal b As Integer) As Integer
            Return a + b
        End Function

        ''' <summary>
        ''' Multiplies two numbers.
        ''' </summary>
        ''' <param name="a" type="Integer">The first number.</param>
        Public Function Multiply(ByVal a As Integer, ByVal b As Integer) As Integer
            Return a * b
        End Function

        Public Sub Reset()
            m_total = 0
        End Sub

        ' The running total.
        Private m_total As Integer

        ''' <summary>
        ''' Sums a list of numbers.
        ''' </summary>
        ''' <param name="values" type="List(Of Integer)">The numbers.</param>
        ''' <returns>The total.</returns>
        Public Function Sum(ByVal values As List(Of Integer)) As Integer
            Dim total As Integer = 0
            Dim count As Integer = 0
            For Each v As Integer In values
                total += v
                count += 1
            Next
            If count = 0 Then
                Return 0
            End If
            Dim average As Double = total / count
            Dim message As String = "Average: " & _
                average.ToString()
            Console.WriteLine(message)
            m_total = total
            Console.WriteLine("Total: " & total)
            Console.WriteLine("Count: " & count)
            Console.WriteLine("Done")
            Console.WriteLine("Again")
            Console.WriteLine("And again")
            Return total
        End Function

    End Class

End Namespace
