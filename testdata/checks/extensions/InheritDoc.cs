// options: --inheritdoc --no-body
namespace InheritDoc
{
    /// <summary>A contract.</summary>
    public interface IShape
    {
        /// <summary>The area.</summary>
        /// <param name="scale" type="double">A factor.</param>
        /// <returns>The area.</returns>
        double Area(double scale);

        /// <summary>The name.</summary>
        string Name { get; }
    }

    /// <summary>Inherits its members' documentation.</summary>
    public class Square : IShape
    {
        /// <inheritdoc/>
        public double Area(double scale) { return scale; }

        /// <inheritdoc cref="IShape.Name"/>
        public string Name { get { return "square"; } }

        /// <inheritdoc />
        public int this[int index] { get { return index; } }

        /// <inheritdoc></inheritdoc>
        public void Grow(int by) { }

        /// <summary>Without inheritdoc the tags are still required.</summary>
        public int Sides(int n) { return n; } // expect: Missing <param> tag // expect: Missing <returns> tag

        /// <summary>A param tag that disagrees is still one.</summary>
        /// <param name="other" type="int">Other.</param>
        public void Rename(int count) { } // expect: Parameter with different name in XML comment vs. definition. [member Rename:count]

        // <inheritdoc/> in a plain comment is a plain comment.
        public void Plain() { } // expect: Code elements without XML comments.

        public void None() { } // expect: Code elements without definition comments.
    }
}
