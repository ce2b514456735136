using System;
using System.Windows.Forms;

namespace Demo.CSharp
{
    /// <summary>
    /// The program's entry point.
    /// </summary>
    internal static class Program
    {
        /// <summary>
        /// Starts the application.
        /// </summary>
        [STAThread]
        private static void Main()
        {
            Application.EnableVisualStyles();
            Application.Run(new MainForm());
        }
    }
}
