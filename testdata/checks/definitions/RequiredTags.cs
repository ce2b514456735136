// options: --require Method:summary,param,returns --require Class:summary --no-body
// Kinds not named keep their kind item, so their comments are still checked, but they
// require no tag.
namespace RequiredTags
{
    public class NoComment // expect: Code elements without definition comments.
    {
        /// <summary></summary>
        public int EmptySummary;

        /// <remarks>No summary.</remarks>
        public int NoSummary;

        /// <summary/>
        public event System.EventHandler Changed;

        /// <summary>An indexer: a property, so its parameter is not required.</summary>
        public int this[int index] { get { return index; } }

        private int hidden; // expect: Code elements without definition comments.
    }

    /// <remarks>A class without its summary.</remarks>
    public class NoSummary // expect: Missing <summary> tag
    {
        /// <summary>Methods need all three.</summary>
        public string Both(int a) { return ""; } // expect: Missing <param> tag // expect: Missing <returns> tag

        /// <param name="a" type="int">A.</param>
        /// <returns>Text.</returns>
        public string NoSummary2(int a) { return ""; } // expect: Missing <summary> tag
    }

    // A plain comment where XML is required.
    public class Plain // expect: Code elements without XML comments.
    {
    }

    /// <summary>A delegate requires nothing.</summary>
    /// <param name="sender" type="object">Who.</param>
    public delegate void Notify(object sender, int code);
}
