public class Attributes
{
    [return: NotNull]
    public string ReturnTarget() => "";

    [field: NonSerialized]
    public event EventHandler FieldTarget;

    [
        Obsolete,
        Browsable(false)
    ]
    public int SectionOnItsOwnLines { get; set; }

    [method:
        First] [Second]
    void TargetOnTheLineBefore() { }

    [A][B(1)][C("x", Named = 2)]
    int a, b;

    /// <summary>Documented</summary>
    [global::System.Obsolete] [System.Diagnostics.Conditional("DEBUG")] void Qualified() { }

    [Generic<int, string>] void Generic() { }

    void Parameters([In] int a, [param: Out] int b) { }
}
