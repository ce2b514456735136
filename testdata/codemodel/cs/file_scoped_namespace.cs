using System;

/// <summary>A file-scoped namespace.</summary>
namespace Scoped.Name;

using System.Text;

public class A { }

internal record B(int X);
