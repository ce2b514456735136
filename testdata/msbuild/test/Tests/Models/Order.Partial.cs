namespace Fixtures.Tests.Models
{
    public partial class Order
    {
        /// <summary>The number.</summary>
        public int Number { get; set; }
    }
}
