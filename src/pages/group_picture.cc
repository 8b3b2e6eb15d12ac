#include "pages/group_picture.h"

#include "core/text.h"

namespace tessara {

namespace {

struct GroupPicture {
  int bitmap;
  std::string_view group;
};

constexpr GroupPicture kGroupPictures[] = {
    {156, "QTL/6P Group"},   {156, "QTL/6Q Group"},  {156, "QTL/6R Group"},
    {156, "QTL/6S Group"},   {156, "QTL/4G Group"},  {156, "QTL/4H Group"},
    {156, "QTL/4J Group"},   {156, "QTL/4M Group"},  {156, "QTL/4N Group"},
    {156, "QTL/5SZ Group"},  {156, "QTL/4V Group"},  {156, "QTL/4W Group"},
    {203, "QTL/6C Group"},   {203, "QTL/6D Group"},  {203, "QTL/4X Group"},
    {203, "QTL/4Y Group"},   {203, "QTL/4K Group"},  {203, "QTL/4L Group"},
    {203, "QTL/5RZ Group"},  {206, "ZNR9/4Y Group"}, {206, "ZNR9/4X Group"},
    {207, "ZNR9/4VZ Group"}, {238, "QTL/4R Group"},  {238, "QTL/4S Group"},
    {239, "QTL/4T Group"},   {239, "QTL/4U Group"},  {239, "QTL/5UZ Group"},
    {253, "QTL/4E Group"},   {253, "QTL/4F Group"},  {254, "QTL/4C Group"},
    {254, "QTL/4D Group"},   {209, "KB/77161 Group"},
};

}  // namespace

int GroupPictureOf(std::string_view groupName) {
  for (const GroupPicture& picture : kGroupPictures) {
    if (EqualsNoCase(picture.group, groupName)) return picture.bitmap;
  }
  return 0;
}

}  // namespace tessara
