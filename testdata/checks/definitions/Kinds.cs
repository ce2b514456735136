using System;

namespace Kinds // the Namespace template is disabled by default: never checked
{
    public enum Undocumented // expect: Code elements without definition comments. [type Enum]
    {
        First,
        Second = 2
    }

    public struct Bare // expect: Code elements without definition comments. [type Structure]
    {
        public const int Limit = 3; // expect: Code elements without definition comments. [type Field (variable, constant)]
    }

    public interface IBare // expect: Code elements without definition comments. [type Interface]
    {
        int Count { get; } // expect: Code elements without definition comments. [type Property]
        void Run(); // expect: Code elements without definition comments. [type Method]
        event EventHandler Done; // expect: Code elements without definition comments. [type Event]
    }

    public delegate void Bare2(); // expect: Code elements without definition comments. [type Delegate]

    /** */
    public class EmptyBlockDoc // expect: Code elements without definition comments. [type Class]
    {
    }

    /**
     * <summary>A block documentation comment.</summary>
     */
    public class BlockDoc
    {
    }

    /// <summary>Members of all kinds, documented.</summary>
    public class Documented
    {
        /// <summary>A constant.</summary>
        public const string Name = "x";

        /// <summary>A property.</summary>
        public int Size { get; set; }

        /// <summary>An event.</summary>
        public event EventHandler Changed;

        /// <summary>A nested enum; its members are never checked.</summary>
        public enum Mode { On, Off }
    }
}
