namespace Fixtures.Shared
{
    /// <summary>Argument checks.</summary>
    public static class Guard
    {
#if FROM_ROOT_PROPS
        /// <summary>Present when the root Directory.Build.props was imported.</summary>
        public static void NotNull(object value) { }
#endif
    }
}
