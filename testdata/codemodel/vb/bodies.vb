Imports System.Xml.Linq

Public Class Bodies
    Public Sub Lambdas()
        Dim square = Function(x As Integer) As Integer
                         Return x * x
                     End Function
        Dim show = Sub(s As String)
                       Console.WriteLine(s)
                   End Sub
        AddHandler Me.Changed, Sub(sender, e)
                                   Console.WriteLine("changed")
                               End Sub
        Items.ForEach(Sub(item)
                          If item Is Nothing Then Exit Sub
                          Dim inner = Function()
                                          Return 1
                                      End Function
                      End Sub)
        Task.Run(Async Function()
                     Await Task.Delay(1)
                     Return 0
                 End Function).Wait()
        Dim single = Function(x) x + 1
        Dim singleSub = Sub() Console.WriteLine("End Sub")
    End Sub

    Public Function Statements(value As Integer) As Integer
        If value > 0 Then Return 1 Else Return 2
        If value < 0 Then
            Exit Function
        ElseIf value = 0 Then
            End
        End If
        Select Case value
            Case 1, 2 : value += 1
            Case Else
        End Select
        Using reader As New IO.StringReader("")
        End Using
        SyncLock Me
        End SyncLock
        With Me
            .Lambdas()
        End With
        Try
            Throw New Exception()
        Catch ex As Exception When value > 1
        Finally
        End Try
        For i = 0 To 10 Step 2 : Next
        For Each c In "abc" : Next c
        Do While value > 0 : value -= 1 : Loop
        Do : Loop Until True
        While False : End While
        Return value
    End Function

    Public Function Xml() As XElement
        Dim name = "n"
        Dim doc = <?xml version="1.0"?>
                  <root attr=<%= name %>>
                      ' not a comment
                      End Function
                      <child>"unbalanced</child>
                      <%= From i In {1, 2} Select <item id=<%= i %>/> %>
                      <!-- End Sub -->
                      <![CDATA[ End Function ]]>
                  </root>
        Dim element = <single/>
        Dim child = doc.<root>.<child>.Value
        Dim attribute = element.@attr
        Return element
    End Function

    Public Function Strings() As String
        Dim multiLine = "first line
End Function
last line"
        Dim interpolated = $"{If(True, "}", "{")} and {{braces}} {Now:HH:mm}"
        Dim character = "'"c
        Dim dateValue = #12/31/1999 11:59:59 PM#
        Return multiLine
    End Function

    Public Event Changed As EventHandler
    Public Property Items As New List(Of Object)
End Class
