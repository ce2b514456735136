using System;
using System.IO;

using var stream = File.OpenRead("x");
using (var reader = new StreamReader(stream)) { Console.WriteLine(reader.ReadLine()); }
Console.WriteLine("Hello { world");
var numbers = new[] { 1, 2, 3 };
int Add(int a, int b) => a + b;
static void Local() { }
[Obsolete] void WithAttribute() { }
if (numbers.Length > 0) { Console.WriteLine(Add(1, 2)); } else { }
for (int i = 0; i < 3; i++) { }
var anonymous = new { Name = "x" };
record = 5;
await Task.Delay(1);
return;

/// <summary>Types may follow the statements.</summary>
public partial class Program
{
    public static int Counter;
}

record Point(int X, int Y);
