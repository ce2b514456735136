public static class Parameters
{
    public static void Modifiers(this string self, ref int r, out int o, in int i, params object[] rest) { o = 0; }
    public static void RefReadonly(ref readonly int x, scoped ref Span<int> span, scoped Span<int> s2) { }
    public static void Defaults(int a = 1, string b = "x, y", Dictionary<int, string> c = default, int d = (1 + 2) * 3,
                                List<int> e = null, char f = ',', double g = 1.5e-3) { }
    public static void Attributed([NotNull] string s, [CallerMemberName, Other(1, 2)] string member = "") { }
    public static void Types(int[] a, int[,] b, int[][] c, int? d, List<int>? e, (int x, string y) f,
                             (int, (string, int)) g, int* h, delegate*<int, void> i, global::System.String j,
                             Dictionary < string ,List < int > > k) { }
    public static void Arglist(int a, __arglist) { }
    public static void Comments(int /* the count */ count, List</* of */ int> items) { }
    public static void Verbatim(int @int, string @class) { }
    public static void Tuples((int a, int b) pair, (int, int)? maybe) { }
    public static void Multiline(
        int first,
        string second
    ) { }
    public static void Nullable(string? s, object?[]? arr) { }
}
