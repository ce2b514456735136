using System;

namespace Demo.CSharp.Shapes
{
    /// <summary>
    /// A circle.
    /// </summary>
    public class Circle : Shape
    {
        private double radius;

        /// <summary>
        /// Makes a circle of the given radius.
        /// </summary>
        /// <param name="radius" type="double">The radius.</param>
        public Circle(double radius)
        {
            this.radius = radius;
        }

        /// <summary>
        /// The circle's area.
        /// </summary>
        public override double Area()
        {
            return Math.PI * radius * radius;
        }

        /// <summary>
        /// The circle's perimeter.
        /// </summary>
        /// <returns>Two pi times the radius.</returns>
        public override double Perimeter()
        {
            return 2 * Math.PI * radius;
        }

        /// <summary>
        /// Describes the circle.
        /// </summary>
        /// <param name="format" type="string">How to format the numbers.</param>
        /// <returns>The description.</returns>
        public string Describe(string format)
        {
            var text = "Circle";
            text += " of radius ";
            text += radius.ToString(format);
            text += ", area ";
            text += Area().ToString(format);
            text += ", perimeter ";
            text += Perimeter().ToString(format);
            text += ", diameter ";
            text += (2 * radius).ToString(format);
            text += ", named ";
            text += Name;
            text += ".";
            if (text.Length > 80)
            {
                text = text.Substring(0, 80);
            }
            text = text.Trim();
            return text;
        }
    }
}
