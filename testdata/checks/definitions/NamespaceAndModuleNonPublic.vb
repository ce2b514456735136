' options: --xmlcheck {Namespace}|{Module}|{Class} --no-public
Namespace Outer

    Public Module Helpers ' expect: Code elements without definition comments. [type Module]
    End Module

    ' A plain comment is enough for non-public definitions.
    Module Commented
    End Module

    Public Class Shown
    End Class

    Friend Class Hidden ' expect: Code elements without definition comments. [type Class]
    End Class

End Namespace
