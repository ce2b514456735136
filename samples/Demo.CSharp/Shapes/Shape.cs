namespace Demo.CSharp.Shapes
{
    // A plain comment where an XML documentation comment is required.
    public abstract class Shape
    {
        /// <summary>
        /// The shape's name.
        /// </summary>
        public string Name { get; set; }

        /// <summary>
        /// The area of the shape.
        /// </summary>
        /// <returns></returns>
        public abstract double Area();

        public abstract double Perimeter();

        /// <summary>Scales the shape.</summary>
        /// <param name="factor" type="double">How much larger.</param>
        /// <param name="origin" type="int">Ignored.</param>
        public virtual void Scale(double factor)
        {
        }

        /// <summary>Moves the shape.</summary>
        /// <param name="dy" type="double">Vertical offset.</param>
        /// <param name="dx" type="double">Horizontal offset.</param>
        public void Move(double dx, double dy)
        {
        }

        /// <remarks>Rotation has no summary.</remarks>
        /// <param name="degrees" type="int">How far.</param>
        public void Rotate(double degrees)
        {
        }

        /// <summary>Resizes the shape.</summary>
        /// <param name="size" type="int">The new size.</param>
        public void Resize(double width)
        {
        }
    }
}
