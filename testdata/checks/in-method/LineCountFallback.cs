// options: --max-lines 4
/// <summary>A stored limit below 5 is not used: 15 is.</summary>
public class Fallback
{
    /// <summary>Six code lines: fine with 15.</summary>
    public void Six()
    {
        int v = 0;
        v++;
        v++;
        v++;
        v++;
        v++;
    }

    /// <summary>Sixteen code lines are not.</summary>
    public void Sixteen() // expect: Too large uncommented code block [end +18]
    {
        int v = 0;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
    }
}
