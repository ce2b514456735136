namespace Fixtures.Tests
{
    /// <summary>Compiled: only the entry points are removed.</summary>
    internal static class EntryHelper { }
}
