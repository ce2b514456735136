// A comment on line 1 is never seen as the comment of what follows.
public class FirstLine // expect: Code elements without definition comments. [type Class]
{
}

namespace Fixtures
{
    public class NoComment // expect: Code elements without definition comments. [type Class]
    {
    }

    // A descriptive comment only.
    public class PlainComment // expect: Code elements without XML comments. [type Class]
    {
    }

    // The comment, then an attribute line and a blank line.
    [Serializable]

    public class AttributeBetween // expect: Code elements without XML comments. [type Class]
    {
    }

    /// <summary>An enum; its members are never checked.</summary>
    public enum Color
    {
        Red,
        Green
    }

    /// <summary>Holds the cases of fields and nesting.</summary>
    public class Holder
    {
        private int hidden; // expect: Code elements without definition comments. [type Field (variable, constant)]

        /// <summary></summary>
        public int EmptySummary; // expect: Missing <summary> tag [type Field (variable, constant)]

        /// <remarks>No summary at all.</remarks>
        public int NoSummary; // expect: Missing <summary> tag [type Field (variable, constant)]

        /// <summary>Private, so its nested public class is not public.</summary>
        private class Inner
        {
            public class Deeper // expect: Code elements without definition comments. [type Class]
            {
            }
        }

        /// <summary/>
        public event System.EventHandler Changed; // expect: Missing <summary> tag [type Event]
    }

    /// <summary>Interfaces are checked too.</summary>
    public interface IShape
    {
        double Area(); // expect: Code elements without definition comments. [type Method]
    }

    /// <summary>A structure.</summary>
    public struct Point
    {
        /// <summary>X.</summary>
        public int X;
    }

    /// <summary>A delegate.</summary>
    /// <param name="sender" type="object">Who.</param>
    public delegate void Notify(object sender, int code); // expect: Less parameters in XML comment than in definition. [member Notify] [type Delegate]
}
