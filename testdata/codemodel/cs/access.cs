public class Access
{
    public int Public;
    private int Private;
    protected int Protected;
    internal int Internal;
    protected internal int ProtectedInternal;
    internal protected int InternalProtected;
    private protected int PrivateProtected;
    protected private int ProtectedPrivate;
    int Default;
    static int StaticDefault;
    void Method() { }
    static Access() { }
    Access() { }
    public Access(int a) { }
    ~Access() { }
    int Property { get; set; }
    event System.EventHandler Event;
    int this[int i] => i;
    public static Access operator !(Access a) => a;
    void IDisposable.Dispose() { }
    int IList<int>.this[int index] { get => 0; set { } }
    event System.EventHandler INotify.Changed { add { } remove { } }
    static Access IAdd<Access>.operator +(Access a, Access b) => a;
}

struct StructDefaults
{
    int Field;
    void Method() { }
    public StructDefaults(int x) { Field = x; }
}

interface IDefaults
{
    void Method();
    int Property { get; }
    event System.EventHandler Event;
    int this[int i] { get; }
    static abstract IDefaults operator +(IDefaults a, IDefaults b);
    static IDefaults() { }
    private void Helper() { }
    protected void ForImplementers() { }
    internal int InternalProperty => 0;
    void IOther.Explicit() { }
    const int Constant = 1;
    class Nested { }
}

enum EnumDefaults { A, B }

internal class ExplicitInternal { }
file class FileType { }
file sealed class SealedFileType { }
