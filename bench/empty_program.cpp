// What starting any program with these libraries costs.
int main() {
  return 0;
}
