// A snapshot of generated code: nothing here is analysed.
public class GeneratedProxy
{
    public void Invoke() { }
}
