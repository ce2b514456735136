// options: --xmlcheck {Method}|summary --no-body
// Only methods have a kind item: nothing else is checked, not even for a missing comment.
public class FirstLine
{
}

namespace KindMissing
{
    public class NoComment
    {
        private int hidden;

        public event System.EventHandler Changed;

        public int Count { get; }

        private void InitializeComponent() // expect: Code elements without definition comments. [type Method]
        {
        }

        private void initializeComponent() // expect: Code elements without definition comments. [type Method]
        {
        }

        // A plain comment on a public method.
        public void Plain() { } // expect: Code elements without XML comments.

        /// <remarks>No summary.</remarks>
        public string NoSummary() { return ""; } // expect: Missing <summary> tag

        /// <summary>Returns not required.</summary>
        public string Documented(int a) { return ""; }
    }

    public interface IShape
    {
        double Area(); // expect: Code elements without definition comments. [type Method]
    }
}
