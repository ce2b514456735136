// options: --no-non-public --no-body
namespace NoNonPublic
{
    /// <summary>Only its public members are reported.</summary>
    public class Holder
    {
        private int hidden;

        internal void Local() { }

        public int Open; // expect: Code elements without definition comments.

        /// <summary></summary>
        private int emptySummary;

        private class Inner
        {
            public class Deeper
            {
            }
        }

        private void InitializeComponent()
        {
        }
    }

    class Internal
    {
    }
}
