namespace Fixtures.Tests.Models
{
    /// <summary>An order.</summary>
    public partial class Order { }
}
