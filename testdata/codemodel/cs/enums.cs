using System;

[Flags]
public enum Permissions : ulong
{
    None = 0,
    Read = 1 << 0,
    Write = 1 << 1,
    ReadWrite = Read | Write,
    /// <summary>All of them.</summary>
    All = ~0UL,
#if LEGACY
    Legacy = 99,
#endif
    Last = (1 << 10) + Helper.Value(3, 4),
}

enum Empty { }

enum SingleLine { A, B = 'x', C = "abc".Length }

public class Holder
{
    internal enum Nested
    {
        X,
        [Obsolete("no")] Y,
        Z
    };
}
