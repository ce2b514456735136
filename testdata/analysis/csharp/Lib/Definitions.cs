// A comment on line 1 is never seen as the comment of what follows.
public class FirstLine
{
}

namespace Fixtures
{
    public class NoComment
    {
    }

    // A descriptive comment only.
    public class PlainComment
    {
    }

    // The comment, then an attribute line and a blank line.
    [Serializable]

    public class AttributeBetween
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
        private int hidden;

        /// <summary></summary>
        public int EmptySummary;

        /// <remarks>No summary at all.</remarks>
        public int NoSummary;

        /// <summary>Private, so its nested public class is not public.</summary>
        private class Inner
        {
            public class Deeper
            {
            }
        }

        /// <summary/>
        public event System.EventHandler Changed;
    }

    /// <summary>Interfaces are checked too.</summary>
    public interface IShape
    {
        double Area();
    }

    /// <summary>A structure.</summary>
    public struct Point
    {
        /// <summary>X.</summary>
        public int X;
    }

    /// <summary>A delegate.</summary>
    /// <param name="sender" type="object">Who.</param>
    public delegate void Notify(object sender, int code);
}
