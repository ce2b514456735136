using System.Reflection;

[assembly: AssemblyTitle("Demo.CSharp")]
[assembly: AssemblyVersion("1.0.0.0")]
