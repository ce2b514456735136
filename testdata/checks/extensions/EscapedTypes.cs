// options: --no-body
namespace EscapedTypes
{
    /// <summary>Attribute values are read as XML defines them.</summary>
    public class Parameters
    {
        /// <summary>Escaped angle brackets.</summary>
        /// <param name="list" type="List&lt;int&gt;">List.</param>
        public void Escaped(List<int> list) { }

        /// <summary>Nested, with character references.</summary>
        /// <param name="map" type="Dictionary&#60;string, List&#x3C;int&#x3E;&gt;">Map.</param>
        public void Nested(Dictionary<string, List<int>> map) { }

        /// <summary>Written unescaped, which comments do.</summary>
        /// <param name="list" type="List<int>">List.</param>
        public void Unescaped(List<int> list) { }

        /// <summary>An escaped type that differs still differs.</summary>
        /// <param name="list" type="List&lt;long&gt;">List.</param>
        public void Differs(List<int> list) { } // expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member Differs:list]

        /// <summary>Names are read the same way.</summary>
        /// <param name="&#97;" type="int">A.</param>
        public void EscapedName(int a) { }

        /// <summary>An entity that is not XML's stays as written.</summary>
        /// <param name="a" type="List&nbsp;">A.</param>
        public void Unknown(int a) { } // expect: Parameter with different type in XML comment vs. definition (or no type specified in XML comment). [member Unknown:a]
    }
}
