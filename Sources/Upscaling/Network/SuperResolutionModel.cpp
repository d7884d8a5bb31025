#include "Upscaling/Network/SuperResolutionModel.h"

#include "Providers/ProviderError.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/BoundedAllocator.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QCoreApplication>
#include <QStringList>
#include <qfloat16.h>

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>
#include <onnxruntime_cxx_api.h>
#include <onnxruntime_session_options_config_keys.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SuperResolutionModel)
};

const QString kCuda = u"CUDAExecutionProvider"_s;
const QString kWebGpu = u"WebGpuExecutionProvider"_s;
const QString kProcessor = u"CPUExecutionProvider"_s;
constexpr const char *kReachEntry = "reach";
/// Of a text from the file, in an error.
constexpr int kMostShown = 40;
constexpr std::array<std::int64_t, 4> kTileShape{1, 3, TileGrid::kTileEdge, TileGrid::kTileEdge};
constexpr std::array<std::int64_t, 4> kResultShape{1, 3, TileGrid::kResultEdge, TileGrid::kResultEdge};

std::array<std::int64_t, 4> shapeOf(QSize picture)
{
    return {1, 3, picture.height(), picture.width()};
}

QString elementName(ONNXTensorElementDataType type)
{
    switch (type) {
    case ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT:
        return u"float32"_s;
    case ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT16:
        return u"float16"_s;
    default:
        return Tr::tr("element type %1").arg(int(type));
    }
}

QString shapeText(std::span<const std::int64_t> shape)
{
    QStringList sides;
    for (const std::int64_t side : shape) {
        sides.append(side < 0 ? Tr::tr("any", "a length") : QString::number(side));
    }
    return u"[%1]"_s.arg(sides.join(u", "_s));
}

[[noreturn]] void refuse(const QString &found, const QString &needed)
{
    throw ModelError(Tr::tr("The model does not fit: %1; needed is %2").arg(found, needed).toStdString());
}

/// One end of the network, as the file declares it.
struct Port
{
    std::string name;
    ONNXTensorElementDataType type = ONNX_TENSOR_ELEMENT_DATA_TYPE_UNDEFINED;
    std::vector<std::int64_t> shape; ///< Negative for a side of any length; empty when the file does not say.

    Port(std::string portName, const Ort::TypeInfo &info)
        : name(std::move(portName))
    {
        if (info.GetONNXType() == ONNX_TYPE_TENSOR) {
            const auto tensor = info.GetTensorTypeAndShapeInfo();
            type = tensor.GetElementType();
            shape = tensor.GetShape();
        }
    }

    [[nodiscard]] bool isHalf() const { return type == ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT16; }

    void mustFit(const QString &sentence, std::span<const std::int64_t> wanted) const
    {
        const bool knownType = isHalf() || type == ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT;
        const auto fits = [](std::int64_t found, std::int64_t side) { return found < 0 || found == side; };
        const bool knownShape = std::equal(shape.begin(), shape.end(), wanted.begin(), wanted.end(), fits);
        if (!knownType || !(knownShape || shape.empty())) {
            refuse(sentence.arg(elementName(type), shapeText(shape)),
                   Tr::tr("float32 or float16 %1, or any height and width").arg(shapeText(wanted)));
        }
    }
};

QByteArray checked(QByteArray content)
{
    if (content.isEmpty()) {
        refuse(Tr::tr("its file is empty"), Tr::tr("an ONNX file"));
    }
    // Weights in other files are named by entries with this key; some versions of the engine would read any file so
    // named.
    static const QByteArray kOtherFile("\x0a\x08location");
    if (content.contains(kOtherFile)) {
        refuse(Tr::tr("it keeps weights in other files"), Tr::tr("one file with everything in it"));
    }
    return content;
}

/// Lends our memory to the engine.
struct Allocator : OrtAllocator
{
    Allocator()
        : OrtAllocator{}
    {
        version = ORT_API_VERSION;
        // Declared as C functions, but called from C++ that takes exceptions from allocators.
        OrtAllocator::Alloc = [](OrtAllocator *self, std::size_t size) {
            return static_cast<Allocator *>(self)->memory.allocate(size);
        };
        OrtAllocator::Reserve = OrtAllocator::Alloc;
        OrtAllocator::Free = [](OrtAllocator *self, void *block) {
            static_cast<Allocator *>(self)->memory.release(block);
        };
        OrtAllocator::Info = [](const OrtAllocator *self) -> const OrtMemoryInfo * {
            return static_cast<const Allocator *>(self)->info;
        };
    }

    BoundedAllocator memory{engineMemoryBound()};
    Ort::MemoryInfo info{Ort::MemoryInfo::CreateCpu(OrtDeviceAllocator, OrtMemTypeDefault)};
};

/// The engine's own errors leave this file as ours with their text unchanged.
template <typename Call> auto passingOn(Call call)
{
    try {
        return call();
    } catch (const Ort::Exception &error) {
        throw ModelError(error.what());
    }
}

Ort::Env quietEnvironment()
{
    const auto nothing = [](void *, OrtLoggingLevel, const char *, const char *, const char *, const char *) {};
    Ort::Env environment(ORT_LOGGING_LEVEL_FATAL, "quorvane", nothing, nullptr);
    environment.DisableTelemetryEvents();
    // The engine has one environment in a process, with one allocator, which two upscales at a time share: hence the
    // static, and hence no error when the other one has brought it already.
    static Allocator allocator;
    Ort::Status(Ort::GetApi().RegisterAllocator(environment, &allocator));
    return environment;
}

/// Puts provider before the processor, which remains for what provider does not know.
void prefer(const QString &provider, Ort::SessionOptions &options)
{
    if (provider == kCuda) {
        options.AppendExecutionProvider_CUDA(OrtCUDAProviderOptions());
    } else if (provider != kProcessor) {
        options.AppendExecutionProvider(provider.toStdString());
    }
}

Ort::SessionOptions optionsFor(int threads, const QString &provider)
{
    Ort::SessionOptions options;
    options.SetIntraOpNumThreads(threads);
    options.SetInterOpNumThreads(1);
    options.SetDeterministicCompute(true);
    options.AddConfigEntry(kOrtSessionOptionsConfigUseEnvAllocators, "1");
    options.DisableMemPattern(); // One block for everything would hold what is needed one after another.
    options.AddConfigEntry(kOrtSessionOptionsConfigLoadModelFormat, "ONNX");
    // Waiting threads sleep instead of turning in circles: the desktop needs the cores.
    options.AddConfigEntry(kOrtSessionOptionsConfigAllowIntraOpSpinning, "0");
    prefer(provider, options);
    return options;
}

} // namespace

struct SuperResolutionModel::Engine
{
    Engine(const QByteArray &file, int threads, const QString &provider)
        : environment(quietEnvironment())
        , session(environment, file.constData(), static_cast<std::size_t>(file.size()), optionsFor(threads, provider))
        , input(onlyInput())
        , output(onlyOutput())
    {
        input.mustFit(Tr::tr("its input is %1 %2"), kTileShape);
        output.mustFit(Tr::tr("its output is %1 %2"), kResultShape);
        if (input.shape.empty()) {
            refuse(Tr::tr("its input has no declared shape"), shapeText(kTileShape));
        }
        const int declared = declaredReach();
        reach = takesOneSize() ? 0 : declared;
    }

    [[nodiscard]] bool takesOneSize() const { return input.shape[2] > 0 || input.shape[3] > 0; }

    /// 0 when the file does not say.
    [[nodiscard]] int declaredReach() const
    {
        Ort::AllocatorWithDefaultOptions allocator;
        const auto entry = session.GetModelMetadata().LookupCustomMetadataMapAllocated(kReachEntry, allocator);
        if (!entry) {
            return 0;
        }
        const QString found = QString::fromUtf8(entry.get());
        bool isNumber = false;
        const int number = found.toInt(&isNumber);
        if (!isNumber || number < 1 || number > TileGrid::kMostReach) {
            refuse(Tr::tr("its reach is \"%1\"").arg(found.left(kMostShown)),
                   Tr::tr("a whole number of 1 to %1").arg(TileGrid::kMostReach));
        }
        return number;
    }

    [[nodiscard]] Port onlyInput() const
    {
        const std::size_t inputs = session.GetInputCount();
        const std::size_t outputs = session.GetOutputCount();
        if (inputs != 1 || outputs != 1) {
            refuse(Tr::tr("it has %1 inputs and %2 outputs").arg(inputs).arg(outputs),
                   Tr::tr("one picture in and one out"));
        }
        Ort::AllocatorWithDefaultOptions allocator;
        return {session.GetInputNameAllocated(0, allocator).get(), session.GetInputTypeInfo(0)};
    }

    [[nodiscard]] Port onlyOutput() const
    {
        Ort::AllocatorWithDefaultOptions allocator;
        return {session.GetOutputNameAllocated(0, allocator).get(), session.GetOutputTypeInfo(0)};
    }

    /// The tile as the tensor that the network takes. Refers to tile or to halves.
    [[nodiscard]] Ort::Value tensorOf(std::span<const float> tile, QSize size)
    {
        const std::array<std::int64_t, 4> shape = shapeOf(size);
        const auto memory = Ort::MemoryInfo::CreateCpu(OrtDeviceAllocator, OrtMemTypeDefault);
        if (input.isHalf()) {
            halves.resize(tile.size());
            qFloatToFloat16(halves.data(), tile.data(), static_cast<qsizetype>(tile.size()));
            return Ort::Value::CreateTensor(memory, halves.data(), halves.size() * sizeof(qfloat16), shape.data(),
                                            shape.size(), ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT16);
        }
        // The engine only reads its input, but its interface does not say so.
        return Ort::Value::CreateTensor<float>(memory, const_cast<float *>(tile.data()), tile.size(), shape.data(),
                                               shape.size());
    }

    Ort::Env environment;
    Ort::Session session;
    Port input;
    Port output;
    int reach = 0;
    Ort::Value result{nullptr};
    std::vector<qfloat16> halves;
    std::vector<float> widened; ///< The result of a float16 network.
};

SuperResolutionModel::SuperResolutionModel(const QString &path, int threads)
    : SuperResolutionModel(readModel(path), threads)
{
}

SuperResolutionModel::SuperResolutionModel(const QByteArray &content, int threads)
    : m_engine(passingOn([&] { return std::make_unique<Engine>(checked(content), threads, kProcessor); }))
{
}

SuperResolutionModel::SuperResolutionModel(const QString &path, int threads, const QString &provider)
    : m_engine(passingOn([&] { return std::make_unique<Engine>(checked(readModel(path)), threads, provider); }))
{
}

SuperResolutionModel::~SuperResolutionModel() = default;

int SuperResolutionModel::reach() const
{
    return m_engine->reach;
}

std::span<const float> SuperResolutionModel::run(std::span<const float> tile, const std::stop_token &stop, QSize size)
{
    Q_ASSERT(tile.size() == std::size_t(3) * std::size_t(size.width()) * std::size_t(size.height()));
    m_engine->result = Ort::Value(nullptr); // Its memory serves the next one.

    Ort::RunOptions options;
    const std::stop_callback terminate(stop, [&options] { options.SetTerminate(); });
    const std::array<const char *, 1> inputs{m_engine->input.name.c_str()};
    const std::array<const char *, 1> outputs{m_engine->output.name.c_str()};
    std::vector<Ort::Value> results;
    try {
        const Ort::Value tensor = m_engine->tensorOf(tile, size);
        results = m_engine->session.Run(options, inputs.data(), &tensor, 1, outputs.data(), 1);
    } catch (const Ort::Exception &error) {
        if (stop.stop_requested()) {
            throw UpscaleStopped();
        }
        throw ModelError(error.what());
    }

    if (results.empty() || !results.front().IsTensor()) {
        throw ProviderError::invalidResponse(Tr::tr("No result from RealESRGAN model"));
    }
    m_engine->result = std::move(results.front());
    const auto info = m_engine->result.GetTensorTypeAndShapeInfo();
    const std::vector<std::int64_t> shape = info.GetShape();
    const std::array<std::int64_t, 4> wanted = shapeOf(size * TileGrid::kScale);
    const bool isPicture = shape.size() == wanted.size() && shape[0] == 1 && shape[1] == 3;
    if (!isPicture || info.GetElementType() != m_engine->output.type) {
        throw ProviderError::invalidResponse(Tr::tr("Failed to convert upscaled tile to CGImage"));
    }
    if (!std::equal(shape.begin(), shape.end(), wanted.begin())) {
        refuse(Tr::tr("it made %1 of a tile").arg(shapeText(shape)), shapeText(wanted));
    }
    const std::size_t numbers = tile.size() * TileGrid::kScale * TileGrid::kScale;
    if (!m_engine->output.isHalf()) {
        return {m_engine->result.GetTensorData<float>(), numbers};
    }
    m_engine->widened.resize(numbers);
    qFloatFromFloat16(m_engine->widened.data(), static_cast<const qfloat16 *>(m_engine->result.GetTensorRawData()),
                      static_cast<qsizetype>(numbers));
    return m_engine->widened;
}

QString SuperResolutionModel::description() const
{
    const Port &input = m_engine->input;
    const bool fixed = input.shape[2] > 0 && input.shape[3] > 0;
    return Tr::tr("%1, %2, in \"%3\", out \"%4\"")
        .arg(elementName(input.type), fixed ? Tr::tr("tiles of 512 × 512") : Tr::tr("tiles of any size"),
             QString::fromStdString(input.name), QString::fromStdString(m_engine->output.name));
}

QStringList SuperResolutionModel::cardProviders()
{
    QStringList providers;
    const std::vector<std::string> known = Ort::GetAvailableProviders();
    for (const QString &provider : {kCuda, kWebGpu}) {
        if (std::find(known.begin(), known.end(), provider.toStdString()) != known.end()) {
            providers.append(provider);
        }
    }
    return providers;
}

} // namespace quorvane
