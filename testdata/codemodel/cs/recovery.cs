namespace Recovery
{
    public class Survives
    {
        public int Before;
        public int 123abc;
        public void MissingClosingBrace()
        {
            if (true) {
                DoSomething();

        public void NextMethod() { }
        [Broken(]
        public int AfterBrokenAttribute;
        public List<int Unclosed;
        public int AfterUnclosedGeneric;
        public void MissingParen(int a { }
        public int AfterMissingParen;
        public static Survives operator @(Survives a) => a;
        public int AfterBadOperator;
        public int Expression => (1 + ;
        public int AfterBadExpression;
        public class { public int InNamelessClass; }
        public int AfterNamelessClass;
        public void UnterminatedString() { var s = "abc
        }
        public int AfterUnterminatedString;
        ??? !!! ;
        public int AfterGarbage;
        public int Last;
    }

    public class Next { }
}
