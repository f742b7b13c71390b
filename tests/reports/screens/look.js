// Tells of each frame whether its page fits its width, and else what lies beyond its right edge or does not fit its box.
addEventListener("load", () => {
  let told = "";
  const frames = [...document.querySelectorAll("iframe")];
  for (const frame of frames) {
    const page = frame.contentDocument;
    const sticksOut = part =>
      part.getBoundingClientRect().right > frame.clientWidth + 1 ||
      (getComputedStyle(part).display !== "inline" && part.scrollWidth > part.clientWidth + 1);
    const parts = [...page.querySelectorAll("body, body *:not(.hidden, col, colgroup, tbody, tr)")];
    const names = parts.filter(sticksOut).map(part => `${part.localName} "${part.textContent.trim().slice(0, 30)}"`);
    const fits = names.length === 0 && page.documentElement.scrollWidth <= page.documentElement.clientWidth;
    told += `${frame.title}: ${fits ? "fits" : "too wide, " + names.slice(0, 5).join(", ")}\n`;
  }
  frames.forEach(frame => frame.remove());
  const answer = document.createElement("pre");
  answer.id = "told";
  answer.textContent = told;
  document.body.append(answer);
});
