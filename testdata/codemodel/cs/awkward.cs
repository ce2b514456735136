using System;

namespace Awkward
{
    public class Braces
    {
        private string s1 = "}";
        private string s2 = @"}
{ ""}"" ";
        private string s3 = $"{{}} {Value} {(Flag ? "}" : "{")} {$"{Nested("}")}"}";
        private string s4 = """
            } { "" """ " // /* 
            """;
        private string s5 = $$"""{ {{Value}} } """;
        private char c1 = '}', c2 = '{', c3 = '\'';
        private byte[] u8 = "}"u8.ToArray();
        // } a brace in a comment
        /* } { another */
        public int Value { get; set; }
        public bool Flag;

        public void Body()
        {
            var x = "}";  // }
            var y = '{';
            var z = $@"{x}
}";
            if (x == "{") { Console.WriteLine("}}}"); }
            int Local(int a) { return a; }
            Func<int, int> f = a => { return a + 1; };
            var anon = new { A = 1, B = "}" };
            var list = new List<Dictionary<string, List<int>>>();
            switch (x) { case "}": break; default: { } break; }
            var s = x switch { "a" => 1, _ => 2 };
            int[] arr = [1, 2, 3];
            if (arr is [1, .., 3]) { }
        }

        public string Nested(string a) => a;
        public Dictionary<string, List<KeyValuePair<int, List<string>>>> Deep;
        public List<List<int>>[] ArrayOfLists;
        private Dictionary<int, string> map = new Dictionary<int, string> { [1] = "}" }, second;
        private Func<int, bool> lessThan = x => x < 3, greater = y => y > 4;
        private bool compare = A < B, other = C > D;
    }
}
