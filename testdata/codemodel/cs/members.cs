using System;

public unsafe partial class Members<T> : IEnumerable<T>, IComparable<Members<T>>
{
    private int a, b = 2, c = Compute(1, 2);
    private readonly Dictionary<string, List<int>> map = new Dictionary<string, List<int>>(), other = null;
    public const string Open = "{", Close = "}";
    public static readonly Func<int, int> Square = x => { return x * x; };
    private volatile int flag;
    public fixed char Buffer[32];
    private delegate*<int, void> pointer;
    private delegate* unmanaged[Cdecl]<int, int> nativePointer;
    public int* RawPointer;
    private (int, string) tuple;
    private int?[] nullables;
    private List<List<int>>[][,] jagged;
    public event EventHandler Changed = delegate { }, Closed;

    public Members() : this(0) { }
    public Members(int x) : base() { a = x; }
    static Members() { }
    ~Members() { }

    public void Run() { }
    public T Get<TKey>(TKey key) where TKey : notnull => default!;
    public async Task<int> RunAsync() { await Task.Yield(); return 1; }
    public ref readonly int RefReadonly() => ref a;
    public ref int Ref(ref int x) => ref x;
    public (int min, int max) Range() => (0, 1);
    public override string ToString() => "{ }";
    partial void OnChanged();
    partial void OnChanged() { }
    [DllImport("native.dll")] private static extern int NativeCall(int value);
    public new void Hide() { }
    public virtual IEnumerable<T> Items() { yield return default!; }

    public int Auto { get; set; }
    public int Init { get; init; } = 5;
    public required string Required { get; set; }
    public string Computed => $"{a}{b}";
    public int Full { get { return a; } set { a = value; } }
    public int WithField { get => field; set => field = value; }
    public string this[int index, string key] { get => key; set { } }
    public int this[params int[] indexes] => 0;
    public event EventHandler Custom { add { } remove { } }

    public static Members<T> operator +(Members<T> x, Members<T> y) => x;
    public static Members<T> operator checked -(Members<T> x, Members<T> y) => x;
    public static bool operator ==(Members<T> x, Members<T> y) => true;
    public static bool operator !=(Members<T> x, Members<T> y) => false;
    public static bool operator <(Members<T> x, Members<T> y) => true;
    public static bool operator >(Members<T> x, Members<T> y) => true;
    public static bool operator <=(Members<T> x, Members<T> y) => true;
    public static bool operator >=(Members<T> x, Members<T> y) => true;
    public static Members<T> operator <<(Members<T> x, int y) => x;
    public static Members<T> operator >>(Members<T> x, int y) => x;
    public static Members<T> operator >>>(Members<T> x, int y) => x;
    public static bool operator true(Members<T> x) => true;
    public static bool operator false(Members<T> x) => false;
    public static Members<T> operator ++(Members<T> x) => x;
    public void operator +=(int amount) { }
    public void operator >>=(int amount) { }
    public static implicit operator int(Members<T> x) => 0;
    public static explicit operator Members<T>(int x) => new();
    public static explicit operator checked List<int>?(Members<T> x) => null;

    void IDisposable.Dispose() { }
    IEnumerator<KeyValuePair<string, JToken>> IEnumerable<KeyValuePair<string, JToken>>.GetEnumerator() => null;
    int IComparable<Members<T>>.CompareTo(Members<T> other) => 0;
    T IGeneric<T>.Generic<U>(U u) => default!;
}
