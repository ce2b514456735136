namespace Docs
{
    /// <summary>
    ///   Indented text keeps all but one blank.
    ///<para>No blank after the marker.</para>
    ///	A tab counts as the blank.
    /// Trailing blanks stay.   
    ///
    /// </summary>
    public class Lines { }

    /// <summary>Blank lines between the comment and the declaration</summary>


    public class BlankLines { }

    /// <summary>Before the attributes</summary>
    [Serializable]
    /// <summary>Between the attributes and the declaration: not the element's</summary>
    [Obsolete("x")]
    public class AttributesBetween { }

    [Serializable]
    /// <summary>Only between attributes and declaration</summary>
    public class OnlyAfterAttributes { }

    /// <summary>First group</summary>
    // a plain comment between the groups

    /// <remarks>Second group</remarks>
    public class TwoGroups { }

    //// Four slashes are a plain comment
    /**/
    /*** Three stars are a plain comment */
    public class PlainOnly { }

    /** Single line block */
    public class SingleLineBlock { }

    /**
     * Line one
     * Line two
     */
    public class StarredBlock { }

    /** First on the opening line
        second without a star
     *   star then three blanks
     *
     * last */
    public class MixedBlock { }

    /**
    */
    public class EmptyBlock { }

    /// <summary>Line comment</summary>
    /** <remarks>then a block</remarks> */
    public class LineThenBlock { }

    public class Fields
    { /// On the brace's line: belongs to the brace
        int a; /// On a's line: belongs to a's semicolon
        int b;
        /// <summary>Shared by every declarator</summary>
        int c, d;

        /// <summary>Across directive lines</summary>
#region Region
#pragma warning disable 1591
        public void AcrossDirectives() { }
#endregion

        /// <summary>Active</summary>
#if NOT_DEFINED
        /// <summary>Inactive</summary>
#endif
        public void InactiveDocSkipped() { }
    }

    public enum Documented
    {
        /// <summary>Zero</summary>
        Zero,
        One, /// belongs to the comma
        /** <summary>Two</summary> */
        [Description("two")]
        Two
    }
}
