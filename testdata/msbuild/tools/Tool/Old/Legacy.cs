public class Legacy { }
