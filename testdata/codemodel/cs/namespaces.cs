/// <summary>Namespaces take their documentation comment like any element.</summary>
namespace Outer
{
    namespace Inner.Deeper
    {
        class A { }
    }

    namespace
        Split . Name
    {
    };

    delegate void D();
}

namespace Outer.Second { struct S { } }
