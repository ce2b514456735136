namespace Visibility
{
    /// <summary>Public: protected members count as public too.</summary>
    public class Outer
    {
        // Protected with a plain comment only.
        protected void Guarded() { } // expect: Code elements without XML comments.

        // Protected internal with a plain comment only.
        protected internal int Shared; // expect: Code elements without XML comments.

        // Internal: a plain comment is what non-public definitions need.
        internal void Local() { }

        // Private, the same.
        private int count;

        private void NoComment() { } // expect: Code elements without definition comments.

        void DefaultAccess() { } // expect: Code elements without definition comments.

        /// <summary>Private, and documented: its tags are checked all the same.</summary>
        private string Text() { return ""; } // expect: Missing <returns> tag

        // A public class inside a private one is not public.
        private class Hidden
        {
            // So a plain comment will do for it and its public members.
            public class Inside
            {
                // Plain.
                public void Run() { }
            }
        }
    }

    // A class without a modifier is internal.
    class Internal
    {
        // Its public members are not public either.
        public void Run() { }
    }

    internal class NoCommentAtAll // expect: Code elements without definition comments.
    {
    }
}
