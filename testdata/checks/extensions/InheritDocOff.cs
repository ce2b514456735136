// options: --no-body
namespace InheritDocOff
{
    /// <summary>Without the option an inheritdoc comment is checked like any other.</summary>
    public class Square
    {
        /// <inheritdoc/>
        public double Area(double scale) { return scale; } // expect: Missing <summary> tag // expect: Missing <param> tag // expect: Missing <returns> tag

        /// <inheritdoc cref="object.ToString"/>
        public string Name { get { return "square"; } } // expect: Missing <summary> tag [type Property]
    }
}
