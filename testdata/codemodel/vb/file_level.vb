''' Documentation before an Option statement.
Option Strict On
Option Explicit
Option Compare Text
''' Imports never have documentation.
Imports System
Imports System.Collections.Generic, System.Linq
Imports Gen = System.Collections.Generic.Dictionary(Of String, Integer)
Imports <xmlns:ns="http://example.com/ns">
Imports <xmlns="http://example.com/default">, System.Text

<Assembly: AssemblyTitle("Sample")>
<Assembly: AssemblyVersion("1.0.*"), Assembly: CLSCompliant(True)>
<Module: System.Runtime.CompilerServices.CompilationRelaxations(8)>

Public Delegate Sub TopHandler(sender As Object)

Class TopClass
End Class

Module TopModule
End Module

Interface ITop
End Interface

Structure TopStruct
End Structure

Enum TopEnum
    One
End Enum
