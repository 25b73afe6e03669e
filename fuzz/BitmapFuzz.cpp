// BMP files: any bytes are read without harm, and what is a picture comes back the same from a file of our own.
#include "Fuzz.h"
#include "storage/BitmapFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bitmap = storage::DecodeBitmap(fuzz::Text(data, size));
    if (!bitmap) return 0;
    fuzz::Require(bitmap->size.width >= 1 && bitmap->size.width <= 256);
    fuzz::Require(bitmap->size.height >= 1 && bitmap->size.height <= 256);
    fuzz::Require(bitmap->bitsPerPixel == 24 || bitmap->bitsPerPixel == 32);
    const std::string file = storage::EncodeBitmap(bitmap->size, bitmap->pixels);
    fuzz::Require(file.size() <= storage::kMostBitmapBytes);
    const auto again = storage::DecodeBitmap(file);
    fuzz::Require(again && again->size == bitmap->size && again->bitsPerPixel == 32);
    fuzz::Require(again->pixels == bitmap->pixels);
    return 0;
}
