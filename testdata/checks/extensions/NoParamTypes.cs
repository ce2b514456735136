// options: --no-param-types --no-body
namespace NoParamTypes
{
    /// <summary>param tags compared by name and number only.</summary>
    public class Parameters
    {
        /// <summary>No type given, as most code bases write.</summary>
        /// <param name="a">A.</param>
        /// <param name="b">B.</param>
        public void NoTypes(int a, string b) { }

        /// <summary>A type that differs is not a finding.</summary>
        /// <param name="a" type="long">A.</param>
        public void OtherType(int a) { }

        /// <summary>Names still count.</summary>
        /// <param name="b">B.</param>
        /// <param name="a">A.</param>
        // expect: Parameter with different name in XML comment vs. definition. [member Swapped:a]
        // expect: Parameter with different name in XML comment vs. definition. [member Swapped:b]
        public void Swapped(int a, int b) { }

        /// <summary>A name and a type that differ are a name that differs.</summary>
        /// <param name="x" type="string">X.</param>
        public void Renamed(int a) { } // expect: Parameter with different name in XML comment vs. definition. [member Renamed:a]

        /// <summary>So do numbers.</summary>
        /// <param name="a">A.</param>
        public void TooFew(int a, int b) { } // expect: Less parameters in XML comment than in definition.

        /// <summary>And numbers the other way.</summary>
        /// <param name="a">A.</param>
        public void TooMany() { } // expect: More parameters in XML comment than in definition.
    }
}
