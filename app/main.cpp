// Starts the program.
int main() { return 0; }
