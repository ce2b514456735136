// options: --xmlcheck {Class}|{Method}|remarks|summary|example|{Structure}|summary --no-body
namespace TagLists
{
    // A kind item without tags: the comment must be there, and of the right sort.
    public class Plain // expect: Code elements without XML comments.
    {
        /// <summary>Both other tags absent: two rows, in the order of the list.</summary>
        public void TwoAbsent() { } // expect: Missing <remarks> tag // expect: Missing <example> tag

        /// <remarks></remarks>
        /// <summary/>
        /// <example>Used so.</example>
        public void EmptyTags() { } // expect: Missing <remarks> tag // expect: Missing <summary> tag

        /// <remarks>R.</remarks>
        /// <summary>S.</summary>
        /// <example>E.</example>
        public void AllThere() { }

        // An element left open still counts as present; the tags after it are found.
        /// <summary>Not closed
        /// <remarks>R.</remarks>
        public void Unclosed() { } // expect: Missing <example> tag
    }

    /// Any XML at all: a class requires no tag.
    public class NoTags
    {
    }

    /// <summary>
    ///   Spread over
    ///   three lines.
    /// </summary>
    public struct Spread
    {
    }
}
