using System.Windows.Forms;

namespace Demo.CSharp
{
    /// <summary>
    /// The main window.
    /// </summary>
    public partial class MainForm : Form
    {
        /// <summary>
        /// Makes the window.
        /// </summary>
        public MainForm()
        {
            InitializeComponent();
        }
    }
}
