using System;
#if DEBUG
using System.Diagnostics;
#endif

namespace Preprocessor
{
    /// <summary>Each branch opens the type its own way.</summary>
#if DEBUG
    public class Conditional : IDebuggable
#elif TRACE
    public class Conditional : ITraceable
#else
    internal class Conditional
#endif
    {
#if DEBUG
        public void DebugOnly() { }
#else
        public void ReleaseOnly() { }
#endif
        public void Always()
        {
#if DEBUG
            {
#endif
            Console.WriteLine("x");
#if DEBUG
            }
#endif
        }
#if NET8_0_OR_GREATER && !NETFRAMEWORK
        public void Modern() { }
#endif
#if (NET48 || NETFRAMEWORK) && DEBUG
        public void Legacy() { }
#endif
#define LOCAL
#if LOCAL
        public void DefinedInFile() { }
#endif
#undef LOCAL
#if LOCAL
        public void Undefined() { }
#endif
#if MISSING
        public class Hidden { }
        /* an unclosed comment in an inactive region
#endif
        public int After;
#if MISSING
        " an unclosed string in an inactive region
#elif DEBUG
        public int Elif;
#endif
#if DEBUG +
        public int Malformed;
#endif
    }
}
