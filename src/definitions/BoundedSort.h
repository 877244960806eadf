#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

/// Thrown where a sort looks beyond the ends of its list.
struct TOutOfBounds
{};

/// A place in a list that knows the ends of the list.
template <typename T>
class TBoundedIterator
{
public:
   using iterator_category = std::random_access_iterator_tag;
   using value_type = T;
   using difference_type = std::ptrdiff_t;
   using pointer = T*;
   using reference = T&;

   TBoundedIterator(std::vector<T>& list, difference_type place) : fList(&list), fPlace(place) {}

   reference operator*() const
   {
      const auto place = static_cast<std::size_t>(fPlace);
      if (place >= fList->size())
         throw TOutOfBounds();
      return (*fList)[place];
   }

   reference operator[](difference_type distance) const { return *(*this + distance); }

   TBoundedIterator& operator+=(difference_type distance)
   {
      fPlace += distance;
      return *this;
   }

   TBoundedIterator& operator-=(difference_type distance) { return *this += -distance; }

   TBoundedIterator& operator++() { return *this += 1; }

   TBoundedIterator& operator--() { return *this += -1; }

   TBoundedIterator operator++(int)
   {
      const TBoundedIterator before = *this;
      ++*this;
      return before;
   }

   TBoundedIterator operator--(int)
   {
      const TBoundedIterator before = *this;
      --*this;
      return before;
   }

   friend TBoundedIterator operator+(TBoundedIterator a, difference_type b) { return a += b; }

   friend TBoundedIterator operator-(TBoundedIterator a, difference_type b) { return a -= b; }

   friend difference_type operator-(const TBoundedIterator& a, const TBoundedIterator& b)
   {
      return a.fPlace - b.fPlace;
   }

   friend bool operator==(const TBoundedIterator& a, const TBoundedIterator& b)
   {
      return a.fPlace == b.fPlace;
   }

   friend bool operator!=(const TBoundedIterator& a, const TBoundedIterator& b)
   {
      return a.fPlace != b.fPlace;
   }

   friend bool operator<(const TBoundedIterator& a, const TBoundedIterator& b)
   {
      return a.fPlace < b.fPlace;
   }

private:
   std::vector<T>* fList;
   difference_type fPlace;
};

/// Sorts as the standard library does: readers of the reports know the order in which it leaves
/// equal instances. Texts that compare in a circle lead that sort out of bounds.
/// Missing: false where it was stopped there; the order is then nobody's.
template <typename T, typename Compare>
bool SortWithinBounds(std::vector<T>& list, const Compare& isBefore)
{
   try {
      std::sort(TBoundedIterator<T>(list, 0),
                TBoundedIterator<T>(list, static_cast<std::ptrdiff_t>(list.size())), isBefore);
      return true;
   } catch (const TOutOfBounds&) {
      return false;
   }
}
