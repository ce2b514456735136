using System.Reflection;

[assembly: AssemblyTitle("Demo { not a brace }")]
[assembly: AssemblyVersion("1.0.0.0"), AssemblyCulture("")]
[module: System.CLSCompliant(true)]
[assembly:
    System.Runtime.CompilerServices.InternalsVisibleTo(
        "Demo.Tests")]
[assembly: ComVisible(false) ,]

/// <summary>The attribute on a type is the type's own, not a top-level element.</summary>
[Serializable]
class C { }
