public static class EntryPoint
{
    public static void Main() { }
}
