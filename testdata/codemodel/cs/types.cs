namespace Types
{
    public class Plain { }
    public abstract partial class Generic<TKey, TValue> : Base<TKey>, IDisposable
        where TKey : class, new()
        where TValue : struct
    {
    }
    public sealed class WithPrimary(int x, string y) : Base(x)
    {
        public int X => x;
    }
    internal static class Static { };
    public struct Point { public int X; }
    public readonly struct ReadOnlyPoint { }
    public ref struct RefStruct { }
    public readonly ref partial struct ReadOnlyRefStruct { }
    public interface IShape<in T, out U> where T : IComparable<T> { }
    public enum Color : byte { Red }
    public record Person(string First, string Last);
    public record class Employee(string First) : Person(First, "x") { public int Id { get; init; } }
    public record struct Pair(int A, int B);
    public readonly record struct Money(decimal Amount);
    public record Empty;
    file class FileLocal { }
    public class Outer
    {
        class NestedDefault { }
        public class NestedPublic { }
        struct NestedStruct { }
        interface INested { }
        enum NestedEnum { A }
        delegate void NestedDelegate();
        record NestedRecord(int A);
    }
    public interface IContainer
    {
        class InInterface { }
        private class PrivateInInterface { }
        delegate void InterfaceDelegate();
    }
    public class Generic2<[Attr] T> where T : unmanaged { }
    public class Multi<T> : IEnumerable<KeyValuePair<string, List<int>>> where T : allows ref struct { }
}

class AtFileLevel { }
public delegate TResult Func2<in T, out TResult>(T arg) where T : notnull;
