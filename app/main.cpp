// Placeholder entry until the command line lands in this folder.
int main() { return 0; }
