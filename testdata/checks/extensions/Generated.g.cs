// options: --skip-generated
// A .g.cs file is generated: nothing in it is analysed, however it is commented.
namespace Generated
{
    public class Undocumented
    {
        public int Field;

        public void Long()
        {
            int a = 1;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
            a++;
        }
    }
}
