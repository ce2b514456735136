// Using directives at file level are import elements named by what they import.
extern alias Legacy;
/// A doc comment before a using belongs to nothing: imports have none.
using System;
using System.Collections.Generic;
using static System.Math;
using L = System.Collections.Generic.List<int>;
using Pair = System.Collections.Generic.KeyValuePair<string, System.Collections.Generic.List<int>>;
using Point = (int X, int Y);
using unsafe IntPtrAlias = int*;
global using global::System.Linq;
global using static System.Console;
using   System .
    Text;

namespace Imports
{
    using System.IO;
    using IO = System.IO;

    class C { }
}
