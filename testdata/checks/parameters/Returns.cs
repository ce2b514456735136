// options: --xmlcheck {Method}|returns|para|{Delegate}|returns|para --no-body
namespace Returns
{
    /// <summary>The return rule reads the first word of the typed prototype.</summary>
    public class Returns
    {
        /// <summary>Void.</summary>
        public void Plain() { }

        /// <summary>Void in another spelling.</summary>
        public System.Void Spelled() { }

        /// <summary>A string.</summary>
        public string Text() { return ""; } // expect: Missing <returns> tag

        /// <summary>A generic type.</summary>
        public System.Collections.Generic.List<int> Numbers() { return null; } // expect: Missing <returns> tag

        /// <summary>A constructor: its prototype has no type word.</summary>
        public Returns() { }

        /// <summary>The para tag follows the parameter rule: parameters, so it is missing.</summary>
        public void WithParameter(int a) { } // expect: Missing <para> tag

        /// <summary>No parameters: nothing is missing.</summary>
        public void WithoutParameter() { }

        /// <returns>Present.</returns>
        /// <para>Present.</para>
        public int BothThere(int a) { return a; }

        /// <summary>Empty tags are missing, whatever the rules for absent ones.</summary>
        /// <returns></returns>
        /// <para/>
        public void EmptyTags() { } // expect: Missing <returns> tag // expect: Missing <para> tag
    }

    /// <summary>Delegates follow the same rules.</summary>
    public delegate int Count(string text); // expect: Missing <returns> tag // expect: Missing <para> tag

    /// <summary>A void delegate without parameters needs neither.</summary>
    public delegate void Tick();
}
