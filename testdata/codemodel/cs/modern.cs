namespace Modern;

[Generic<int>]
[System.Diagnostics.CodeAnalysis.SetsRequiredMembers]
public sealed record Person(string First, string Last) : IPerson
{
    public required int Age { get; init; }
    public string Full => $"{First} {Last}";
    public static Person Empty { get; } = new("", "");
    public partial string Partial { get; set; }
}

public interface IArithmetic<TSelf> where TSelf : IArithmetic<TSelf>
{
    static abstract TSelf Zero { get; }
    static abstract TSelf operator +(TSelf left, TSelf right);
    static virtual TSelf operator checked -(TSelf left, TSelf right) => left;
    static abstract implicit operator TSelf(int value);
    static abstract explicit operator checked int(TSelf value);
    static TSelf Create() => TSelf.Zero;
}

public class Implementation : IArithmetic<Implementation>
{
    static Implementation IArithmetic<Implementation>.Zero => new();
    static Implementation IArithmetic<Implementation>.operator +(Implementation l, Implementation r) => l;
    static implicit IArithmetic<Implementation>.operator Implementation(int value) => new();
}

public class Primary(ILogger logger, int count = 1)
{
    private readonly ILogger _logger = logger;
    public int Count => count;
}

public static class Extensions
{
    extension(string text)
    {
        public bool IsEmpty => text.Length == 0;
        public string Twice() => text + text;
    }

    extension<T>(List<T> list) where T : class
    {
        public T? FirstOrNull() => list.Count > 0 ? list[0] : null;
    }

    public static int WordCount(this string s) => s.Split(' ').Length;
}

public class Strings
{
    public const string Raw = """
        {"json": "value"} // not a comment
        """;
    public string Interpolated(int x) => $$"""{"x": {{x}}}""";
    public ReadOnlySpan<byte> Utf8 => "bytes"u8;
    public int[] Collection = [1, 2, .. Other];
    public static int[] Other = [];
    public ref struct Inner { public Span<int> Items; }
}

public partial class Widget
{
    public partial Widget(int size);
    public partial Widget(int size) { }
    public partial event EventHandler Resized;
    public partial Widget Clone();
}
