// options: --public-plain --no-body
namespace PublicPlain
{
    // A plain comment is enough for a public class now.
    public class Plain
    {
        // And for its public members.
        public int Size;

        [System.Obsolete]
        public int NoComment; // expect: Code elements without definition comments.

        /// <summary></summary>
        public int EmptySummary; // expect: Missing <summary> tag
    }

    public class NoComment // expect: Code elements without definition comments.
    {
    }

    // The comment, then an attribute line and a blank line: still the class's comment.
    [System.Serializable]

    public class AttributeBetween
    {
    }
}
