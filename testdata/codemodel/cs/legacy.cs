using System;
using System.Collections;

namespace Legacy
{
    #region Delegates
    public delegate void ChangedHandler(object sender, EventArgs e);
    #endregion

    /// <summary>
    /// Written the way C# 1 and 2 code was.
    /// </summary>
    [Serializable()]
    public class OldStyle : IEnumerable
    {
        private ArrayList items = new ArrayList();
        private event ChangedHandler changed;

        public event ChangedHandler Changed
        {
            add { changed += value; }
            remove { changed -= value; }
        }

        public int Count
        {
            get
            {
                return items.Count;
            }
        }

        public IEnumerator GetEnumerator()
        {
            foreach (object o in items)
                yield return o;
        }

        public void Handlers()
        {
            changed += delegate(object s, EventArgs e) { Console.WriteLine("}"); };
            int? maybe = null;
            checked { int x = int.MaxValue; }
            unsafe { fixed (char* p = "x") { } }
            lock (items) { }
            try { } catch (Exception) { } finally { }
            goto label;
            label: ;
        }

        public static OldStyle operator +(OldStyle a, OldStyle b)
        {
            return a;
        }
    }
}
