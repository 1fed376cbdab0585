#pragma once

class Place {
 public:
  explicit Place(int number = -1);
};

class Index {
 public:
  Place open(int number);
  int size();
};
