// A library of the right name that offers none of the functions.
extern "C" int SomethingElse() { return 1; }
