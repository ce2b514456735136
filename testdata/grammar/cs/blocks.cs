void M()
{
#region It's a region // with no comment
    /* first
       second */
    int x = 1;
    /** doc
     */
#endregion
    x++; /* unterminated
