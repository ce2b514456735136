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
        public void SwappedSameTypes(int a, int b) { }

        /// <summary>Swapped, types differ.</summary>
        /// <param name="b" type="string">B.</param>
        /// <param name="a" type="int">A.</param>
        public void SwappedOtherTypes(int a, string b) { }

        /// <summary>No type given.</summary>
        /// <param name="a">A.</param>
        public void NoType(int a) { }

        /// <summary>Case differs.</summary>
        /// <param name="A" type="int">A.</param>
        public void CaseDiffers(int a) { }

        /// <summary>Documents a parameter it does not have.</summary>
        /// <param name="x" type="int">X.</param>
        public void MoreInComment() { }

        /// <summary>Documents one of two.</summary>
        /// <param name="a" type="int">A.</param>
        public void LessInComment(int a, int b) { }

        /// <summary>No param tag, no parameters.</summary>
        public void NoParameters() { }

        /// <summary>No param tag, a parameter.</summary>
        public void MissingParam(int a) { }

        /// <summary>Void in another spelling.</summary>
        public System.Void SystemVoid() { }

        /// <summary>Returns a string without saying so.</summary>
        public string MissingReturns() { return ""; }

        /// <summary>A constructor has no type word.</summary>
        public Parameters() { }

        /// <summary>Generic types are compared as written.</summary>
        /// <param name="map" type="Dictionary&lt;string, int&gt;">Map.</param>
        /// <param name="list" type="List<int>">List.</param>
        /// <returns>A count.</returns>
        public int Generic(System.Collections.Generic.Dictionary<string, int> map, List<int> list) { return 0; }

        /// <summary>An indexer has parameters.</summary>
        public int this[int index] { get { return index; } }
    }
}
