#include <vector>
template <typename T> void f(T t) { t.nothing(); }
int main()
{
    f(3);
    std::vector<int> v = "text";
}
