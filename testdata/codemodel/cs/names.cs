namespace @namespace.Names
{
    public class @class
    {
        public int @int;
        public void @void(string @string) { }
        public event System.EventHandler @event;
        public int @this { get; }
    }

    public class Größe
    {
        public string Straße;
        public void Überprüfen() { }
    }

    public class Contextual
    {
        public int record;
        public string async { get; set; }
        public void partial() { }
        public int var, dynamic, nameof, value, file, required, scoped;
        public record Inner(int where);
        private async void Handler() { }
        public required string Name { get; set; }
        partial void Generated();
        public Contextual async2() => this;
        public (int, int) Pair() => default;
        public async (int, int) PairAsync() => default;
    }

    public class Generic<T>
    {
        public Generic() { }
        ~Generic() { }
        public T Method<U, V>() => default;
    }
}
