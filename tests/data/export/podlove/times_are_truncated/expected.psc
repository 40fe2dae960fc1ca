<psc:chapters version="1.2" xmlns:psc="http://podlove.org/simple-chapters">
<psc:chapter start="00:00:59.999" title="Minute" />
<psc:chapter start="100:00:00.000" title="Hundred hours" />
<psc:chapter start="23:59:59.999" title="Day" />
</psc:chapters>
