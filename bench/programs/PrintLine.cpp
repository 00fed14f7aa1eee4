// The least that a program in C++ takes to start, print and end.
#include <iostream>

int main() { std::cout << "A program that prints one line\n"; }
