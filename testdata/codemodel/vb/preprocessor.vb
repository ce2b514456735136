#Const LOCAL_FEATURE = True
#Const Level = 2
Namespace Preprocessed
#If DEBUG Then
    Public Class DebugOnly
    End Class
#Else
    Public Class ReleaseOnly
    End Class
#End If

#If TARGET = "library" Then
    Public Class ForLibrary
#ElseIf TARGET = "exe" Then
    Public Class ForExe
#Else
    Public Class ForOthers
#End If
        Public Sub Shared1()
        End Sub
    End Class

#If NET48 AndAlso Not NETCOREAPP Then
    Public Module Framework
    End Module
#End If
#If LOCAL_FEATURE And Level >= 2 Then
    Public Module Featured
    End Module
#End If
#If UNDEFINED_SYMBOL Then
    Public Module Never
#Const LOCAL_FEATURE = False
    End Module
#End If
#Region "Members"
    Public Class Regions
#Region "Nested"
        Private kept As Integer
#End Region
    End Class
#End Region
End Namespace
