<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="-00:00:00.250" title="Before" />
</psc:chapters>
