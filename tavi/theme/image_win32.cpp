#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <map>
#include <utility>

#include "base/win32/com.h"
#include "base/windows_path.h"
#include "tavi/theme/image.h"
#include "tavi/theme/surface_cache.h"

namespace tavi {
namespace {

constexpr const GUID* kContainers[] = {&GUID_ContainerFormatPng, &GUID_ContainerFormatBmp, &GUID_ContainerFormatJpeg};

bool isKnownContainer(IWICBitmapDecoder& decoder) {
    GUID container{};
    return SUCCEEDED(decoder.GetContainerFormat(&container)) &&
           std::ranges::any_of(kContainers, [&](const GUID* known) { return IsEqualGUID(container, *known); });
}

std::optional<PixelBuffer> pixelsOf(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    if (FAILED(source.GetSize(&width, &height)) || width == 0 || height == 0 ||
        uint64_t{width} * height > static_cast<uint64_t>(kPicturePixelLimit)) {
        return std::nullopt;
    }
    PixelBuffer picture({static_cast<int32_t>(width), static_cast<int32_t>(height)});
    const HRESULT copied = source.CopyPixels(nullptr, width * sizeof(Pixel), static_cast<UINT>(picture.bytes()),
                                             reinterpret_cast<BYTE*>(picture.pixels().data()));
    return SUCCEEDED(copied) ? std::optional(std::move(picture)) : std::nullopt;
}

// The pictures that were asked for, also those that could not be read.
struct Pictures {
    std::wstring folder;
    std::map<std::wstring, std::optional<PixelBuffer>, std::less<>> byName;
    size_t bytes = 0;

    void forget() {
        byName.clear();
        bytes = 0;
    }
};

Pictures& pictures() {
    static Pictures all;
    return all;
}

}  // namespace

std::optional<PixelBuffer> loadPicture(const std::wstring& path) {
    const base::ComApartment apartment;
    base::ComPtr<IWICImagingFactory> factory;
    base::ComPtr<IWICBitmapDecoder> decoder;
    base::ComPtr<IWICBitmapFrameDecode> frame;
    base::ComPtr<IWICFormatConverter> converter;
    const auto stored = [](auto& pointer) { return reinterpret_cast<decltype(pointer.get())*>(pointer.put()); };
    const bool ready =
        apartment.usable() &&
        SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                   factory.put())) &&
        SUCCEEDED(factory->CreateDecoderFromFilename(base::extendedLengthPath(path).c_str(), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnDemand, stored(decoder))) &&
        isKnownContainer(*decoder.get()) && SUCCEEDED(decoder->GetFrame(0, stored(frame))) &&
        SUCCEEDED(factory->CreateFormatConverter(stored(converter))) &&
        SUCCEEDED(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                        WICBitmapPaletteTypeCustom));
    return ready ? pixelsOf(*converter.get()) : std::nullopt;
}

void setPictureFolder(std::wstring folder) {
    pictures().folder = std::move(folder);
    pictures().forget();
    // What was painted with a picture of that name may now have another.
    surfaceCache().clear();
}

const PixelBuffer* stylePicture(std::wstring_view name) {
    Pictures& all = pictures();
    if (all.folder.empty() || !isSafePictureName(name)) {
        return nullptr;
    }
    auto found = all.byName.find(name);
    if (found == all.byName.end()) {
        std::optional<PixelBuffer> loaded = loadPicture(base::joinPath(all.folder, name));
        const size_t bytes = loaded ? loaded->bytes() : 0;
        if (all.bytes + bytes > static_cast<size_t>(kPicturePixelLimit) * sizeof(Pixel)) {
            all.forget();
        }
        all.bytes += bytes;
        found = all.byName.emplace(name, std::move(loaded)).first;
    }
    const std::optional<PixelBuffer>& picture = found->second;
    return picture ? &*picture : nullptr;
}

}  // namespace tavi
