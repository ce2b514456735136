' options: --xmlcheck {Namespace}|{Module}|{Class} --no-non-public
Namespace Outer ' expect: Code elements without definition comments. [type Namespace]

    ' A namespace is checked under the public rules; a module under the non-public
    ' ones, even when it is declared Public.
    Public Module Helpers
    End Module

    Public Class Shown ' expect: Code elements without definition comments. [type Class]
    End Class

    Friend Class Hidden
    End Class

End Namespace
