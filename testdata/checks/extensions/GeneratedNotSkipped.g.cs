// options: --no-body
// Without the option a .g.cs file is analysed like any other.
namespace Generated
{
    public class Undocumented // expect: Code elements without definition comments.
    {
        public int Field; // expect: Code elements without definition comments.
    }
}
