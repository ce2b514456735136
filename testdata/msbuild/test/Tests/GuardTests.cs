namespace Fixtures.Tests
{
    /// <summary>Tests of the guard.</summary>
    public class GuardTests
    {
#if FROM_ROOT_PROPS
        /// <summary>Only with the root's symbols.</summary>
        public void RootSymbolsApply() { }
#endif
    }
}
