namespace Odd
{
    /// <summary>Unclosed <b>bold
    /// <param name="x" type="int>broken quote</param>
    public class Broken { public void OneLine(int x) { x++; } }

    /// <summary>
    /// <see cref="Broken"/> &amp; &lt;stuff&gt; <![CDATA[ <not a tag> ]]>
    /// </summary>
    /// <code>
    /// if (a < b) { }
    /// </code>
    public class Entities
    {
        /// < summary>Stray angle bracket.</summary>
        public void Stray() { }

        /// <summary>Unterminated
        public void Unterminated() { }
    }

    public class Unfinished
    {
        public void Half(
