// options: --max-lines 5
/// <summary>The limit itself, and where stretches begin and end.</summary>
public class Boundaries
{
    /// <summary>Five code lines directly above a comment.</summary>
    public void FiveAbove()
    {
        int v = 0;
        v++;
        v++;
        v++;
        v++;
        // a comment
    }

    /// <summary>Six code lines directly above a comment.</summary>
    public void SixAbove() // expect: Too large uncommented code block [end +7]
    {
        int v = 0;
        v++;
        v++;
        v++;
        v++;
        v++;
        // a comment
    }

    /// <summary>A comment several lines long: the next stretch starts on its last line.</summary>
    public void AfterBlock()
    {
        int v = 0;
        // one
        // two
        // three // expect: Too large uncommented code block [end +7]
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
    }

    /// <summary>Stretches on both sides of a comment.</summary>
    public void Twice() // expect: Too large uncommented code block [end +7]
    {
        int v = 0;
        v++;
        v++;
        v++;
        v++;
        v++;
        /* between */ // expect: Too large uncommented code block [end +7]
        v++;
        v++;
        v++;
        v++;
        v++;
        v++;
    }

    /// <summary>A comment at the end of a code line ends the stretch there too.</summary>
    public void TrailingComment()
    {
        int v = 0;
        v++;
        v++; // counted
        v++;
        v++;
        v++;
        v++;
    }

    /// <summary>Blank and brace lines are no code lines.</summary>
    public void Braces()
    {
        int v = 0;

        if (v == 0)
        {
            v++;
        }

        {
            v++;
        }
    }
}
