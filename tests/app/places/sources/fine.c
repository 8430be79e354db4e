int twice(int n);
int main(void) { return twice(2); }
