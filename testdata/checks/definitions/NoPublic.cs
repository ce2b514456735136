// options: --no-public --no-body
namespace NoPublic
{
    public class Open
    {
        public int Size;

        private int hidden; // expect: Code elements without definition comments.

        // Plain comments are enough for non-public definitions by default.
        private int commented;

        /// <summary></summary>
        private int emptySummary; // expect: Missing <summary> tag
    }

    class Internal // expect: Code elements without definition comments.
    {
        public void Run() { } // expect: Code elements without definition comments.
    }
}
