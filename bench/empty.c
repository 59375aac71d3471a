/* The least that a process costs. */
int main(void) { return 0; }
