namespace Fixtures
{
    /// <summary>The in-method comment check.</summary>
    public class Bodies
    {
        /// <summary>Short.</summary>
        public void Short()
        {
            int a = 1;
            int b = 2;
            int c = a + b;
        }

        /// <summary>Twenty body lines without a comment.</summary>
        public void Long() // expect: Too large uncommented code block [end +22]
        {
            int v = 0;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
        }

        /// <summary>Blank and brace lines do not count.</summary>
        public void Sparse()
        {
            int v = 0;

            {
                v++;
            }

            {
                v++;
            }

            {
                v++;
            }

            {
                v++;
            }
        }

        /// <summary>A block comment ends the stretch at its last line.</summary>
        public void BlockComment()
        {
            int v = 0;
            v++;
            v++;
            v++;
            v++;
            v++;
            /* one
               two
               three */
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
        }

        /// <summary>Comment markers inside strings are no comments.</summary>
        public string Strings() // expect: Missing <returns> tag // expect: Too large uncommented code block [end +18]
        {
            string a = "// not a comment";
            string b = @"/* nor
this */";
            string c = $"{a} // still not";
            string d = """
                // raw
                """;
            char e = '/';
            a += b;
            a += c;
            a += d;
            a += e;
            a += "x";
            a += "y";
            a += "z";
            return a;
        }

        private void InitializeComponent() // expect: Code elements without definition comments.
        {
            int v = 0;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
        }

        private void initializeComponent() // expect: Code elements without definition comments.
        {
            int v = 0;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
            v++;
        }
    }
}
