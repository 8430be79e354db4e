typedef int part;
int broken(undeclared x);
