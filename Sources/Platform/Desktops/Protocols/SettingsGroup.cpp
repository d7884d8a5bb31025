// The library instead of the program "gsettings": it changes several values as one, and it tells that its values go
// nowhere, where the program reports success.

#include "Platform/Desktops/Protocols/SettingsGroup.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <mutex>

// Their names stand in the same places as ours, so they come last.
#define G_SETTINGS_ENABLE_BACKEND // NOLINT(cppcoreguidelines-macro-usage): asks for the next header.
#include <gio/gio.h>
#include <gio/gsettingsbackend.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SettingsGroup)
};

/// One reference to a GLib object.
template <typename Type, void (*unreference)(Type *)> struct Unreferenced
{
    void operator()(Type *object) const { unreference(object); }
};
void unreferenceObject(GSettings *object)
{
    g_object_unref(object);
}
using Schema = std::unique_ptr<GSettingsSchema, Unreferenced<GSettingsSchema, g_settings_schema_unref>>;
using Settings = std::unique_ptr<GSettings, Unreferenced<GSettings, unreferenceObject>>;
using Context = std::unique_ptr<GMainContext, Unreferenced<GMainContext, g_main_context_unref>>;
using Value = std::unique_ptr<GVariant, Unreferenced<GVariant, g_variant_unref>>;

QString taken(GError *error)
{
    QString words = QString::fromUtf8(error->message);
    g_error_free(error);
    return words;
}

Schema schemaNamed(const QString &name)
{
    // Asking for a schema that is not there by g_settings_new() would end the program.
    GSettingsSchemaSource *source = g_settings_schema_source_get_default();
    return Schema(source == nullptr ? nullptr : g_settings_schema_source_lookup(source, name.toUtf8().constData(), 1));
}

/// dconf tells why it could not write in a warning and nowhere else, a moment after it has given up.
class DconfWarnings
{
  public:
    /// The process's only ones: GLib has one place for them too.
    static DconfWarnings &listening()
    {
        // Never gone: dconf's thread goes on to the end.
        // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): GLib's is global, too.
        static auto *const warnings = new DconfWarnings;
        return *warnings;
    }

    void forget()
    {
        const std::scoped_lock lock(m_mutex);
        m_last.clear();
    }

    /// The last warning, waiting for it a moment; empty when there is none.
    QString wait()
    {
        constexpr std::chrono::milliseconds kMoment{500};
        std::unique_lock lock(m_mutex);
        m_arrived.wait_for(lock, kMoment, [this] { return !m_last.isEmpty(); });
        return m_last;
    }

  private:
    DconfWarnings() { g_log_set_writer_func(&DconfWarnings::take, this, nullptr); }

    static QByteArray fieldOf(const GLogField *fields, gsize count, const char *key)
    {
        const auto *const end = fields + count;
        const auto *const field =
            std::find_if(fields, end, [&](const GLogField &each) { return std::strcmp(each.key, key) == 0; });
        return field == end
                   ? QByteArray()
                   : QByteArray(static_cast<const char *>(field->value), static_cast<qsizetype>(field->length));
    }

    static GLogWriterOutput take(GLogLevelFlags level, const GLogField *fields, gsize count, void *warnings)
    {
        if (level == G_LOG_LEVEL_WARNING && fieldOf(fields, count, "GLIB_DOMAIN") == "dconf") {
            auto *self = static_cast<DconfWarnings *>(warnings);
            const std::scoped_lock lock(self->m_mutex);
            self->m_last = QString::fromUtf8(fieldOf(fields, count, "MESSAGE"));
            self->m_arrived.notify_all();
        }
        return g_log_writer_default(level, fields, count, nullptr);
    }

    std::mutex m_mutex;
    std::condition_variable m_arrived;
    QString m_last;
};

/// Connects to the session bus as dconf does later on a thread of its own. That connection is common to the process and
/// would end the process together with the bus, unless told otherwise.
Result<> joinBus()
{
    GError *error = nullptr;
    GDBusConnection *connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
    if (connection == nullptr) {
        return Failure{taken(error)};
    }
    g_dbus_connection_set_exit_on_close(connection, 0); // The reference is kept, so that it stays this connection.
    return kDone;
}

/// Whether what is set can be seen by others. GLib keeps values in memory where dconf's module is not installed.
bool isKeptForOthers()
{
    GSettingsBackend *backend = g_settings_backend_get_default();
    const QByteArray type = G_OBJECT_TYPE_NAME(backend);
    g_object_unref(backend);
    return type != "GMemorySettingsBackend" && type != "GNullSettingsBackend";
}

GVariant *variantOf(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool ? g_variant_new_boolean(value.toBool() ? 1 : 0)
                                             : g_variant_new_string(value.toString().toUtf8().constData());
}

} // namespace

struct SettingsGroup::Glib
{
    Schema schema;
    Context context; // Never run: nobody here listens to changes, and the main thread's shall not see ours.
    Settings settings;
};

bool SettingsGroup::isInstalled(const QString &schema)
{
    return schemaNamed(schema) != nullptr;
}

SettingsGroup::SettingsGroup(const QString &schema)
    : m_glib(std::make_unique<Glib>())
    , m_schema(schema)
{
    m_glib->schema = schemaNamed(schema);
    if (m_glib->schema == nullptr) {
        m_usable = Failure{Tr::tr("The settings \"%1\" are not installed").arg(schema)};
        return;
    }
    m_usable = joinBus();
    if (!m_usable) {
        return;
    }
    m_glib->context.reset(g_main_context_new());
    g_main_context_push_thread_default(m_glib->context.get());
    if (isKeptForOthers()) {
        m_glib->settings.reset(g_settings_new_full(m_glib->schema.get(), nullptr, nullptr));
    } else {
        m_usable = Failure{Tr::tr("The settings \"%1\" cannot be kept: GLib has no dconf here").arg(schema)};
    }
}

SettingsGroup::~SettingsGroup()
{
    m_glib->settings.reset();
    if (m_glib->context != nullptr) {
        g_main_context_pop_thread_default(m_glib->context.get());
    }
}

bool SettingsGroup::hasKey(const QString &key) const
{
    return g_settings_schema_has_key(m_glib->schema.get(), key.toUtf8().constData()) != 0;
}

QString SettingsGroup::text(const QString &key) const
{
    const Value value(g_settings_get_value(m_glib->settings.get(), key.toUtf8().constData()));
    return g_variant_is_of_type(value.get(), G_VARIANT_TYPE_STRING) != 0
               ? QString::fromUtf8(g_variant_get_string(value.get(), nullptr))
               : QString();
}

Result<> SettingsGroup::change(const QVariantMap &values)
{
    GSettings *settings = m_glib->settings.get();
    DconfWarnings::listening().forget();
    g_settings_delay(settings);
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (g_settings_set_value(settings, value.key().toUtf8().constData(), variantOf(*value)) == 0) {
            g_settings_revert(settings);
            return Failure{Tr::tr("The setting \"%1 %2\" cannot be changed").arg(m_schema, value.key())};
        }
    }
    g_settings_apply(settings);
    g_settings_sync();
    for (auto value = values.begin(); value != values.end(); ++value) {
        const Value wanted(g_variant_ref_sink(variantOf(*value)));
        const Value kept(g_settings_get_value(settings, value.key().toUtf8().constData()));
        if (g_variant_equal(wanted.get(), kept.get()) == 0) {
            const QString words = DconfWarnings::listening().wait();
            return Failure{words.isEmpty() ? Tr::tr("The setting \"%1 %2\" was not kept").arg(m_schema, value.key())
                                           : words};
        }
    }
    return kDone;
}

} // namespace quorvane
