namespace Fixtures
{
    /// <summary>The parameter and return checks.</summary>
    public class Parameters
    {
        /// <summary>Matches.</summary>
        /// <param name="a" type="int">A.</param>
        /// <param name="b" type="string">B.</param>
        /// <returns>Nothing.</returns>
        public int Same(int a, string b) { return a; }

        /// <summary>Swapped, types equal.</summary>
        /// <param name="b" type="int">B.</param>
        /// <param name="a" type="int">A.</param>
        // expect: Parameter with different name in XML comment vs. definition. [member SwappedSameTypes:a]
        // expect: Parameter with different name in XML comment vs. definition. [member SwappedSameTypes:b]
        public void SwappedSameTypes(int a, int b) { }

        /// <summary>Swapped, types differ.</summary>
        /// <param name="b" type="string">B.</param>
        /// <param name="a" type="int">A.</param>
        // expect: Parameter with different name and type in XML comment vs. definition. [member SwappedOtherTypes:a]
        // expect: Parameter with different name and type in XML comment vs. definition. [member SwappedOtherTypes:b]
        public void SwappedOtherTypes(int a, string b) { }

        /// <summary>No type given.</summary>
        /// <param name="a">A.</param>
        // expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member NoType:a]
        public void NoType(int a) { }

        /// <summary>Only the second position differs.</summary>
        /// <param name="a" type="int">A.</param>
        /// <param name="c" type="int">C.</param>
        public void SecondDiffers(int a, int b) { } // expect: Parameter with different name in XML comment vs. definition. [member SecondDiffers:b]

        /// <summary>Case differs.</summary>
        /// <param name="A" type="int">A.</param>
        public void CaseDiffers(int a) { } // expect: Parameter with different name in XML comment vs. definition. [member CaseDiffers:a]

        /// <summary>Type case differs.</summary>
        /// <param name="a" type="Int">A.</param>
        // expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member TypeCaseDiffers:a]
        public void TypeCaseDiffers(int a) { }

        /// <summary>Documents a parameter it does not have.</summary>
        /// <param name="x" type="int">X.</param>
        public void MoreInComment() { } // expect: More parameters in XML comment than in definition. [member MoreInComment]

        /// <summary>Documents one of two: no position is compared.</summary>
        /// <param name="b" type="string">B.</param>
        public void LessInComment(int a, int b) { } // expect: Less parameters in XML comment than in definition. [member LessInComment]

        /// <summary>No param tag, no parameters.</summary>
        public void NoParameters() { }

        /// <summary>No param tag, a parameter.</summary>
        public void MissingParam(int a) { } // expect: Missing <param> tag [member MissingParam]

        /// <summary>Void in another spelling.</summary>
        public System.Void SystemVoid() { }

        /// <summary>Returns a string without saying so.</summary>
        public string MissingReturns() { return ""; } // expect: Missing <returns> tag [member MissingReturns]

        /// <summary>A constructor has no type word.</summary>
        public Parameters() { }

        /// <summary>Generic types are compared as written.</summary>
        /// <param name="map" type="Dictionary&lt;string, int&gt;">Map.</param>
        /// <param name="list" type="List<int>">List.</param>
        /// <returns>A count.</returns>
        // expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member Generic:map]
        public int Generic(System.Collections.Generic.Dictionary<string, int> map, List<int> list) { return 0; }

        /// <summary>An indexer has parameters.</summary>
        public int this[int index] { get { return index; } } // expect: Missing <param> tag [member this] [type Property]

        /// <summary>A property has none.</summary>
        public int Size { get; set; }

        /// <summary>An event's own parameters are its delegate's.</summary>
        public event System.EventHandler Changed;

        /// <summary>A delegate is compared too.</summary>
        /// <param name="code" type="int">Code.</param>
        /// <param name="sender" type="object">Who.</param>
        // expect: Parameter with different name and type in XML comment vs. definition. [member Notify:sender]
        // expect: Parameter with different name and type in XML comment vs. definition. [member Notify:code]
        public delegate void Notify(object sender, int code);
    }
}
