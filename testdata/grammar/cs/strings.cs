public string Run(int a) // header comment
{
    var url = "http://example.com/*not*/"; // after a string
    var path = @"C:\dir\"; /* block after verbatim */
    var q = @"say ""//no"" please";
    var c = '"'; var d = '\''; var e = '/'; // chars
    var i = $"{a} // {Name("//x")} {{//}}"; // interpolated
    var v = $@"{a}
// still inside the string"; // after verbatim interpolated
    var r = """
        // raw text "quoted" ""two""
        """; // after raw
    return a / 2 /* inline */ + a/3;
}
