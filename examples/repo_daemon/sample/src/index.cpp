#include "index.hpp"

Place Index::open(int number) {
  return number < size() ? Place(number) : Place();  // none beyond the last
}
