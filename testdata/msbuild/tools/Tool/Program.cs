namespace Fixtures.Tool
{
    /// <summary>The tool.</summary>
    public static class Program
    {
#if FROM_ROOT_PROPS
        /// <summary>Only with the root's symbols.</summary>
        public static void Main() { }
#endif
    }
}
