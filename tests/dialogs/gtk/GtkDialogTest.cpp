// What only the GTK view has to get right.

#include "tests/dialogs/DrawnDialogTest.h"
#include "tests/dialogs/gtk/GtkWidgets.h"

#include <string>

namespace {

class GtkDialogTest : public DrawnDialogTest {
 protected:
  // With a long sentence below the preview.
  GtkDialogTest() { folder_.Write("jobs.txt", "Name;Qty;Dicke\nA\xFC;1;1\nB;2;2\nC;3;3\n"); }
  ~GtkDialogTest() override {
    gtk_widget_set_default_direction(GTK_TEXT_DIR_LTR);
    g_object_set(gtk_settings_get_default(), "gtk-xft-dpi", 96 * PANGO_SCALE, nullptr);
  }

  static void OpenAll(DialogDriver& dialog) {
    dialog.Click(Control::ShowHeader);
    dialog.Click(Control::ShowPreview);
    dialog.Rest();
  }
};

void ForAll(GtkWidget* widget, const std::function<void(GtkWidget*)>& look) {
  look(widget);
  if (!GTK_IS_CONTAINER(widget)) return;
  // Also those that a widget is made of.
  gtk_container_forall(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, gpointer to) {
        ForAll(child, *static_cast<const std::function<void(GtkWidget*)>*>(to));
      },
      const_cast<std::function<void(GtkWidget*)>*>(&look));
}

bool HasSpokenName(GtkWidget* widget) {
  AtkObject* const spoken = gtk_widget_get_accessible(widget);
  const char* const name = atk_object_get_name(spoken);
  if (name != nullptr && name[0] != '\0') return true;
  AtkRelationSet* const relations = atk_object_ref_relation_set(spoken);
  const bool isLabelled = atk_relation_set_contains(relations, ATK_RELATION_LABELLED_BY) != FALSE;
  g_object_unref(relations);
  return isLabelled;
}

TEST_F(GtkDialogTest, AScreenReaderHasANameForEveryControl) {
  Run([](DialogDriver& dialog) {
    OpenAll(dialog);
    OnWindowThread([] {
      int controls = 0;
      for (const char* const title : kWindowTitles)
        ForAll(GTK_WIDGET(FindWindow(title)), [&](GtkWidget* widget) {
          const bool isControl = gtk_widget_get_can_focus(widget) != FALSE &&
                                 gtk_widget_get_visible(widget) != FALSE && !GTK_IS_WINDOW(widget) &&
                                 !GTK_IS_SCROLLED_WINDOW(widget);
          if (!isControl) return;
          ++controls;
          EXPECT_TRUE(HasSpokenName(widget))
              << title << ": " << G_OBJECT_TYPE_NAME(widget) << " " << gtk_widget_get_name(widget);
        });
      EXPECT_GE(controls, 28);
    });
  });
}

// Text that is twice as high and wide, in either direction of writing.
TEST_F(GtkDialogTest, LargeTextsFitTheScreenInEitherDirection) {
  for (const GtkTextDirection direction : {GTK_TEXT_DIR_LTR, GTK_TEXT_DIR_RTL}) {
    for (const int percent : {100, 150, 200}) {
      SCOPED_TRACE(percent);
      gtk_init(nullptr, nullptr);
      gtk_widget_set_default_direction(direction);
      g_object_set(gtk_settings_get_default(), "gtk-xft-dpi", 96 * percent / 100 * PANGO_SCALE, nullptr);
      Run([=](DialogDriver& dialog) {
        OpenAll(dialog);
        const Frame frame = dialog.FrameOf(ControlWindow::Option),
                    preview = dialog.FrameOf(ControlWindow::Preview);
        EXPECT_LE(preview.bottom, 1080);
        EXPECT_LE(preview.right, 1280);
        EXPECT_LE(frame.Height(), 1024);
        EXPECT_LE(frame.Width(), 1280);
        EXPECT_EQ(dialog.FrameOf(ControlWindow::Headers).left, frame.right);
        OnWindowThread([] {
          for (const char* const title : kWindowTitles)
            ForAll(GTK_WIDGET(FindWindow(title)), [](GtkWidget* widget) {
              if (!GTK_IS_LABEL(widget) || gtk_widget_get_mapped(widget) == FALSE) return;
              int ink = 0;
              pango_layout_get_pixel_size(gtk_label_get_layout(GTK_LABEL(widget)), &ink, nullptr);
              EXPECT_LE(ink, gtk_widget_get_allocated_width(widget)) << gtk_label_get_text(GTK_LABEL(widget));
            });
        });
        dialog.Drag(Control::Sequence, {1, 2}, Control::Sequence, 0);
        EXPECT_EQ(dialog.Items(Control::Sequence),
                  (std::vector<std::string>{"Customer", "Machine", "PartName"}));
      });
    }
  }
}

TEST_F(GtkDialogTest, ALongListOfNamesIsNoHigherThanAnother) {
  std::string formats;
  for (int format = 0; format < 60; ++format)
    formats += FormatElement("Format " + std::to_string(format), "PartName=0");
  config_ = folder_.Write("formats.xml", FormatFile("Format 0", formats));
  Run([](DialogDriver& dialog) {
    dialog.Press(Control::FormatName, "Alt+Down");
    const auto list = [] {
      return FindWindowThat([](GtkWindow* window) {
        return gtk_window_get_type_hint(window) == GDK_WINDOW_TYPE_HINT_COMBO &&
               gtk_widget_get_mapped(GTK_WIDGET(window)) != FALSE;
      });
    };
    EXPECT_TRUE(WaitUntil([&] { return OnWindowThread([&] { return list() != nullptr; }); }));
    Settle();
    const auto height = [&] {
      return OnWindowThread([&] { return gtk_widget_get_allocated_height(GTK_WIDGET(list())); });
    };
    EXPECT_TRUE(WaitUntil([&] { return height() <= 250; }));
    EXPECT_GE(height(), 150);
    Xdotool("key Escape");
    Settle();
  });
}

}  // namespace
