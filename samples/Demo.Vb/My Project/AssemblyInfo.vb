Imports System.Reflection

<Assembly: AssemblyTitle("Demo.Vb")>
<Assembly: AssemblyVersion("1.0.0.0")>
